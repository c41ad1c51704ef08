#include "photos/slide_show.h"

#include "photos/screens/view_full_screen.h"

namespace korvane {
namespace {

constexpr int kFirstInterval = 10'000;  // ms

}  // namespace

SlideShow::SlideShow(Uses uses)
    : uses_(uses),
      panel_(uses_.main.form()),
      area_({*panel_.picTransition, *panel_.pictimer, uses_.pictures, uses_.settings, uses_.system,
             uses_.log}) {
  panel_.pictimer->interval = kFirstInterval;
}

void SlideShow::start(int row, const QString& directory, const QString& name) {
  uses_.pictures.SetupFiles(directory);
  PictureFiles& files = uses_.pictures.rsFiles;
  const bool begins = files.RecordCount() > 0 && uses_.state.currentTab == kPhotosTab;
  uses_.addTimer.rest(this, begins || !uses_.settings.flag(key::IdleByTouch));
  if (!begins) return;
  const bool touched = uses_.settings.flag(key::StartAtTouched);
  if (touched) {
    for (int i = 0; files.row(i); ++i)
      if (files.row(i)->Path.section(u'/', -1) == name) files.setAbsolutePosition(i + 1);
  } else {
    files.setAbsolutePosition(row);
  }
  Colours colours = panel_.picTransition->colours();
  colours.back = uses_.palette.back(u"PHOTOGRID");
  panel_.picTransition->colours = colours;
  showPage(true);
  area_.begin(touched);
  showTransport();
}

void SlideShow::showPage(bool pictures) {
  panel_.picTransition->visible = pictures;
  panel_.PhotoList->visible = panel_.cmdPhotoSetup->visible = !pictures;
  if (pictures)
    uses_.paging.hide();
  else
    uses_.paging.show(*panel_.PhotoList);
}

void SlideShow::end() {
  area_.end();
  showPage(false);
  showTransport();
  uses_.addTimer.rest(this, false);
}

void SlideShow::leave() {
  area_.end();
  panel_.picTransition->visible = false;
  uses_.main.showMode.reset();
  uses_.addTimer.rest(this, false);
}

void SlideShow::listMoved(bool toRoot) {
  uses_.addTimer.rest(this, toRoot && !uses_.settings.flag(key::IdleByTouch));
}

PlayMode SlideShow::mode() const {
  if (!on()) return PlayMode::Stopped;
  return area_.runs() ? PlayMode::Playing : PlayMode::Paused;
}

void SlideShow::showTransport() {
  uses_.main.showMode.reset();
  if (on()) uses_.main.showMode = mode();
  const bool follows = uses_.settings.flag(key::FollowSound);
  uses_.main.showPlayState(!on() && follows ? uses_.state.gPlayMode : PlayMode::Stopped);
}

void SlideShow::press(TransportButton button) {
  if (!on()) return;
  using enum TransportButton;
  switch (button) {
    case Play:
      area_.run(true);
      break;
    case Pause:
      area_.run(false);
      break;
    case Stop:
      return end();
    case Previous:
      area_.step(-1);
      break;
    case Next:
      area_.step(1);
      break;
    case Repeat:
    case Random:
    case Continue:
      return;
  }
  showTransport();
}

void SlideShow::scrollDelay_Change() {
  panel_.pictimer->interval = static_cast<int>(panel_.scrollDelay->value() * 1000);
  area_.run(true);
  panel_.scrollDelay->text = panel_.lblDelay->caption =
      u"Interval = %1 seconds"_s.arg(toInteger(panel_.pictimer->interval() / 1000.0));
  if (on()) showTransport();
}

void SlideShow::PicTimer_Timer() {
  area_.PicTimer_Timer();
}

void SlideShow::picTransition_DblClick() {
  area_.run(false);
  cmdMovieFullScreen_Click();
}

// The list has the tab back while the full screen is up, so that all that ends it leaves the tab
// whole; then the show goes on from where it has come to.
void SlideShow::cmdMovieFullScreen_Click() {
  if (!on()) return;
  const ShowArea::Frame seen = area_.seen();
  area_.end();
  showPage(false);
  ViewFullScreenForm large({uses_.dialogs, uses_.awake, uses_.pictures, uses_.settings,
                            uses_.system, uses_.log, uses_.main.form()});
  large.open(panel_.pictimer->interval(), seen);
  if (uses_.state.currentTab != kPhotosTab) return;
  showPage(true);
  area_.take(large.seen());
  showTransport();
}

}  // namespace korvane
