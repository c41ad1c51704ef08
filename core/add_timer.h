// When idle seconds are counted: AddTimer of frmMain runs while ads are on, no controls are being
// moved, and nobody keeps it at rest.
#pragma once

#include <functional>
#include <set>

#include "core/app_state.h"
#include "core/form/panel.h"

namespace korvane {

class AddTimer {
 public:
  AddTimer(Form& frmMain, const AppState& state);  // both outlive it

  // `who` begins a use of the system, during which nothing counts as idle, or ends it; saying it
  // again changes nothing.
  void rest(const void* who, bool on);
  bool rests() const { return !users_.empty(); }
  void apply();  // gAddsOn or moveControlsMode has another value

  std::function<void()> begun = [] {};  // hears that a use begins

 private:
  Timer& timer_;
  const AppState& state_;
  std::set<const void*> users_;
};

}  // namespace korvane
