#include "ads/idle_watch.h"

namespace korvane {
namespace {

constexpr int kMostCount = 32767;
constexpr int kLookAgainMs = 10'000;  // while something plays, or the ads come first

}  // namespace

IdleWatch::IdleWatch(Uses uses)
    : uses_(std::move(uses)), panel_(uses_.frmMain), lastUse_(uses_.clock.monotonicMs()) {}

void IdleWatch::start() {
  lastUse_ = uses_.clock.monotonicMs();
  if (const int seconds = uses_.settings.number(key::AdBlack)) waitForBlack(seconds * 1000LL);
}

bool IdleWatch::holds() const {
  return uses_.state.loadingForm || uses_.ads.loading || uses_.screen.busy() ||
         uses_.frmMain.minimised() || !uses_.frmMain.shown() || uses_.host.pressesTaken();
}

bool IdleWatch::adsDue() const {
  return uses_.state.gAddsOn && uses_.ads.adsList.anyDue(uses_.ads.hour());
}

void IdleWatch::AddTimer_Timer() {
  if (holds()) return;
  look();
  int& count = uses_.ads.addsIdleCount;
  if (uses_.plays()) {
    if (uses_.settings.flag(key::IdleByTouch)) count = 0;
    return;
  }
  if (count != uses_.ads.addsStart) {
    count = std::min(count + 1, kMostCount);
    return;
  }
  count = 0;
  if (adsDue()) show();
}

void IdleWatch::show() {
  uses_.addTimer.rest(this, true);
  uses_.view.open();
  uses_.addTimer.rest(this, false);
}

// The buttons as they are; nothing of what is pressed while something plays.
void IdleWatch::look() {
  if (uses_.state.gMusicState == MusicState::Play) return;
  if (uses_.ads.mouseState.look(left_, right_)) uses_.ads.addsIdleCount = 0;
}

// Once as they were, which tells whether they were up meanwhile, and once as they are.
void IdleWatch::addsResetTimer_Timer() {
  look();
  left_ = uses_.host.touches.left;
  right_ = uses_.host.touches.right;
  look();
}

bool IdleWatch::touched() {
  const bool begins = !left_ && !right_;
  uses_.frmMain.fire(*panel_.addsResetTimer, {Event::Tick});
  if (!begins) return false;
  lastUse_ = uses_.clock.monotonicMs();
  if (uses_.settings.flag(key::IdleByTouch)) uses_.ads.addsIdleCount = 0;
  if (!uses_.view.form().shown() || !uses_.settings.flag(key::AdWake)) return false;
  uses_.view.leave();
  return true;
}

void IdleWatch::waitForBlack(qint64 milliseconds) {
  panel_.BlackTimer->interval = static_cast<int>(milliseconds);
  panel_.BlackTimer->enabled = true;
}

void IdleWatch::BlackTimer_Timer() {
  const qint64 most = uses_.settings.number(key::AdBlack) * 1000LL;
  const qint64 now = uses_.clock.monotonicMs();
  panel_.BlackTimer->enabled = false;
  if (most == 0) return;
  const bool plays = uses_.plays();
  if (plays) lastUse_ = now;
  if (plays || adsDue()) return waitForBlack(kLookAgainMs);
  const qint64 left = most - (now - lastUse_);
  if (left > 0) return waitForBlack(left);
  if (holds() || uses_.addTimer.rests()) return waitForBlack(most);
  show();
  waitForBlack(most);
}

}  // namespace korvane
