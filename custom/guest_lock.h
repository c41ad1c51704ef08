// The jukebox's guest lock: while the jukebox is on, stop, skip, delete, the volume and the ways
// out of it want the setup password first.
#pragma once

#include "core/prompt.h"
#include "core/settings.h"

namespace korvane {

class GuestLock {
 public:
  struct Uses {
    const AppState& state;
    const Settings& settings;
    Messages& messages;
  };
  // The form has LockTimer, Slider1 and scrollVolume. It and what is used must outlive this.
  GuestLock(Form& form, Uses uses);

  // True when the press may act: nothing is locked, or the password was typed. Yields.
  bool admits();

  // The mode has changed: a jukebox just turned on is locked.
  void lock();

 private:
  bool locked() const;
  void LockTimer_Timer();
  void show();

  Uses uses_;
  Timer* lockTimer_;
  Slider *position_, *volume_;
  bool open_ = false;
};

}  // namespace korvane
