// What the units of the ads share. Whether they are on stands in AppState::gAddsOn.
#pragma once

#include "ads/ad_list.h"
#include "ads/mouse_state.h"
#include "core/settings.h"
#include "platform/clock.h"

namespace korvane {

struct AdsState {
  int addsStart = 20;     // idle seconds before the show
  int addsBetween = 10;   // seconds an ad stays that says no time of its own
  int addsIdleCount = 0;  // seconds idle
  MouseState mouseState;
  AdList adsList;
  bool loading = false;  // adsList is being read

  AdsState(const Settings& settings, const Clock& clock) : settings_(settings), clock_(clock) {}
  // The time that the hours of ads are compared with; nothing while those count for nothing.
  std::optional<QDateTime> hour() const {
    return settings_.flag(key::AdHours) ? std::optional(clock_.now()) : std::nullopt;
  }

 private:
  const Settings& settings_;
  const Clock& clock_;
};

}  // namespace korvane
