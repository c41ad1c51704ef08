// Keeps the machine's screen on while anybody needs it on: the desktop's screen saver rests and the
// screen's power stays, as it was before for who comes last.
#pragma once

#include <set>

#include "core/app_state.h"

namespace korvane {

class KeepAwake {
 public:
  KeepAwake(ScreenPower& power, AppState& state) : power_(power), state_(state) {}  // outlive it

  // `who` needs the screen on, or not any longer; saying it again changes nothing.
  void need(const void* who, bool on);

 private:
  void setScreenPower(bool restore);

  ScreenPower& power_;
  AppState& state_;
  std::set<const void*> needs_;
};

}  // namespace korvane
