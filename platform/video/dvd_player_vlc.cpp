#include "platform/video/dvd_player_vlc.h"

#include "platform/video/dvd_engine.h"
#include "platform/vlc/vlc_volume.h"

namespace korvane {

// Of libVLC: nothing is asked, and no help of a graphics card, which a picture of this size does
// not need and whose trials open the output three times over.
DvdPlayerVlc::DvdPlayerVlc(Pump& pump, const QStringList& arguments,
                           std::shared_ptr<DvdDrive> drive)
    : engine_(std::make_shared<Engine>(
          *this, pump,
          QStringList{u"--no-interact"_s, u"--no-disable-screensaver"_s, u"--avcodec-hw=none"_s} +
              arguments,
          std::move(drive))) {}

template <class Work>
void DvdPlayerVlc::post(Work work) {
  engine_->post([engine = engine_.get(), work = std::move(work)] { work(*engine); });
}

DvdPlayerVlc::~DvdPlayerVlc() {
  engine_->quit();
}

void DvdPlayerVlc::setEvents(Events* events) {
  events_ = events;
  watchDrive();
}

void DvdPlayerVlc::setWindow(quintptr window) {
  if (std::exchange(window_, window) == window || state_ == Stopped) return;
  ++start_;
  post([](Engine& engine) { engine.halt(); });
  begin();
}

void DvdPlayerVlc::setDVDDirectory(const QString& path) {
  if (path == directory_) return;
  Stop();
  directory_ = path;
  watchDrive();
}

void DvdPlayerVlc::begin() {
  if (window_ == 0) return;
  Start start{++start_, directory_, window_};
  start.paused = state_ == Paused;
  start.atMenu = view_.domain == Menu;
  start.title = view_.title;
  start.chapter = view_.chapter;
  start.milliseconds = view_.milliseconds;
  post([start](Engine& engine) { engine.begin(start); });
}

void DvdPlayerVlc::Play() {
  const State before = std::exchange(state_, Playing);
  if (before == Stopped) begin();
  if (before == Paused && window_ != 0) post([](Engine& engine) { engine.hold(false); });
  watchDrive();
}

void DvdPlayerVlc::Pause() {
  if (state_ != Playing) return;
  state_ = Paused;
  post([](Engine& engine) { engine.hold(true); });
}

void DvdPlayerVlc::Stop() {
  if (std::exchange(state_, Stopped) == Stopped) return;
  ++start_;
  post([](Engine& engine) { engine.halt(); });
  view_ = {};
  watchDrive();
}

void DvdPlayerVlc::watchDrive() {
  const bool on = directory_.isEmpty() && (events_ || state_ != Stopped);
  if (std::exchange(watching_, on) != on) post([on](Engine& engine) { engine.watchDrive(on); });
}

void DvdPlayerVlc::ActivateButton() {
  post([](Engine& engine) { engine.navigate(libvlc_navigate_activate); });
}

void DvdPlayerVlc::SelectButton(Arrow towards) {
  const auto way = [towards] {
    switch (towards) {
      case Upper:
        return libvlc_navigate_up;
      case Lower:
        return libvlc_navigate_down;
      case Left:
        return libvlc_navigate_left;
      case Right:
        break;
    }
    return libvlc_navigate_right;
  }();
  post([way](Engine& engine) { engine.navigate(way); });
}

void DvdPlayerVlc::ShowMenu(MenuId menu) {
  post([menu](Engine& engine) { engine.showMenu(menu); });
}

void DvdPlayerVlc::stepChapter(int by) {
  post([by](Engine& engine) { engine.stepChapter(by); });
}

void DvdPlayerVlc::setCurrentTime(int seconds) {
  if (view_.domain != Title) return;
  view_.milliseconds = qint64{1000} * std::max(0, seconds);
  post([to = view_.milliseconds](Engine& engine) { engine.seekTo(to); });
}

void DvdPlayerVlc::setVolume(int hundredthsOfDecibel) {
  engine_->volume = vlcVolume(hundredthsOfDecibel);
  if (state_ != Stopped) post([](Engine& engine) { engine.applyLevels(); });
}

void DvdPlayerVlc::setMute(bool on) {
  engine_->mute = on;
  if (state_ != Stopped) post([](Engine& engine) { engine.applyLevels(); });
}

QList<MediaTrack> DvdPlayerVlc::tracks(TrackKind kind) const {
  return kind == TrackKind::Sound ? view_.sounds : view_.subtitles;
}

int DvdPlayerVlc::track(TrackKind kind) const {
  return kind == TrackKind::Sound ? view_.sound : view_.subtitle;
}

void DvdPlayerVlc::setTrack(TrackKind kind, int id) {
  if (view_.domain != Title) return;
  (kind == TrackKind::Sound ? view_.sound : view_.subtitle) = id;
  post([kind, id](Engine& engine) { engine.choose(kind, id); });
}

// A handler may stop the disc, or begin another, from each of the calls below.
void DvdPlayerVlc::heardView(int start, const View& view) {
  if (start != start_ || state_ == Stopped) return;
  const View before = std::exchange(view_, view);
  const auto tell = [&](bool changed, Notice notice) {
    if (changed && events_ && start == start_) events_->DVDNotify(notice);
  };
  tell(view.domain != before.domain, DomainChange);
  tell(view.title != before.title || view.length != before.length, TitleChange);
  tell(view.chapter != before.chapter, ChapterStart);
  tell(view.domain == Title && view.milliseconds != before.milliseconds, CurrentTimeChange);
}

void DvdPlayerVlc::heardEnd(int start, const QString& trouble) {
  if (start != start_ || std::exchange(state_, Stopped) == Stopped) return;
  ++start_;
  view_ = {};
  watchDrive();
  if (!events_) return;
  trouble.isEmpty() ? events_->endOfDisc() : events_->failed(trouble);
}

void DvdPlayerVlc::heardDrive(Notice notice) {
  if (events_ && directory_.isEmpty()) events_->DVDNotify(notice);
}

}  // namespace korvane
