#include "custom/guest_lock.h"

#include "core/form/panel.h"
#include "custom/screens/setup_access.h"

namespace korvane {
namespace {

constexpr int kOpenMs = 60'000;  // after the last press that the password admitted

}  // namespace

GuestLock::GuestLock(Form& form, Uses uses)
    : uses_(uses),
      lockTimer_(&controlOf<Timer>(form, u"LockTimer")),
      position_(&controlOf<Slider>(form, u"Slider1")),
      volume_(&controlOf<Slider>(form, u"scrollVolume")) {
  lockTimer_->interval = kOpenMs;
  lockTimer_->enabled = false;
  form.on(u"LockTimer"_s, Event::Tick, [this](Control&, const Event&) { LockTimer_Timer(); });
}

bool GuestLock::locked() const {
  return uses_.state.jukeboxMode && !open_ && uses_.settings.flag(key::JukeboxLock) &&
         uses_.settings.upper(key::Setup) != "NO"_L1;
}

bool GuestLock::admits() {
  if (locked()) {
    const QString typed =
        uses_.messages.ask(u"The jukebox is locked. Enter Setup Password"_s, true);
    if (typed.isEmpty()) return false;
    if (!setupPasswordFits(uses_.settings.raw(key::Setup), typed)) {
      uses_.messages.say(u"That is not the setup password. The jukebox stays locked."_s);
      return false;
    }
    open_ = true;
    show();
  }
  if (open_) {
    lockTimer_->enabled = false;  // counts anew
    lockTimer_->enabled = true;
  }
  return true;
}

void GuestLock::lock() {
  open_ = false;
  lockTimer_->enabled = false;
  show();
}

void GuestLock::LockTimer_Timer() {
  lock();
}

// A thumb cannot ask: it stands still until a button has been unlocked.
void GuestLock::show() {
  position_->enabled = volume_->enabled = !locked();
}

}  // namespace korvane
