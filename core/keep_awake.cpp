#include "core/keep_awake.h"

namespace korvane {
namespace {

constexpr int kAwakeTimeout = 999;  // seconds

}  // namespace

void KeepAwake::need(const void* who, bool on) {
  const bool before = !needs_.empty();
  if (on)
    needs_.insert(who);
  else
    needs_.erase(who);
  if (before == !needs_.empty()) return;
  power_.setScreenSaverActive(before);
  setScreenPower(before);
}

void KeepAwake::setScreenPower(bool restore) {
  if (restore) return power_.write(state_.gSavedPower);
  state_.gSavedPower = power_.read();
  power_.write({false, false, kAwakeTimeout, kAwakeTimeout});
}

}  // namespace korvane
