#include "core/add_timer.h"

namespace korvane {

AddTimer::AddTimer(Form& frmMain, const AppState& state)
    : timer_(controlOf<Timer>(frmMain, u"AddTimer")), state_(state) {}

void AddTimer::rest(const void* who, bool on) {
  const bool begins = on && users_.insert(who).second;
  if (!on) users_.erase(who);
  apply();
  if (begins) begun();
}

void AddTimer::apply() {
  timer_.enabled = state_.gAddsOn && !state_.moveControlsMode && !rests();
}

}  // namespace korvane
