#include "platform/video/dvd_player_vlc.h"

#include "platform/video/dvd_engine.h"
#include "platform/vlc/vlc_volume.h"

namespace korvane {

DvdPlayerVlc::DvdPlayerVlc(Pump& pump, QStringList arguments, const QByteArray& device)
    : engine_(std::make_shared<Engine>(*this, pump, std::move(arguments), device)) {}

DvdPlayerVlc::~DvdPlayerVlc() {
  engine_->quit();
}

template <class Work>
void DvdPlayerVlc::post(Work work) {
  used_ = true;
  engine_->post([engine = engine_.get(), work = std::move(work)] { work(*engine); });
}

void DvdPlayerVlc::watch() {
  post([on = events_ && directory_.isEmpty()](Engine& engine) { engine.watchDrive(on); });
}

void DvdPlayerVlc::setEvents(Events* events) {
  events_ = events;
  if (events || used_) watch();
}

void DvdPlayerVlc::setWindow(quintptr window) {
  if (window == 0 && !used_) return;
  post([window](Engine& engine) { engine.setWindow(window); });
}

void DvdPlayerVlc::setDVDDirectory(const QString& path) {
  if (path == directory_) return;
  directory_ = path;
  state_ = Stopped;
  place_ = {};
  ++run_;
  post([path](Engine& engine) { engine.setDirectory(path); });
  watch();
}

void DvdPlayerVlc::Play() {
  if (state_ == Playing) return;
  if (std::exchange(state_, Playing) == Stopped) ++run_;
  post([run = run_](Engine& engine) { engine.play(run); });
}

void DvdPlayerVlc::Pause() {
  if (state_ != Playing) return;
  state_ = Paused;
  post([](Engine& engine) { engine.pause(); });
}

void DvdPlayerVlc::Stop() {
  if (state_ == Stopped) return;
  state_ = Stopped;
  place_ = {};
  ++run_;
  post([](Engine& engine) { engine.end(); });
}

void DvdPlayerVlc::ActivateButton() {
  if (place_.domain == Menu)
    post([](Engine& engine) { engine.navigate(libvlc_navigate_activate); });
}

void DvdPlayerVlc::SelectButton(Arrow towards) {
  constexpr libvlc_navigate_mode_t kWays[] = {libvlc_navigate_up, libvlc_navigate_down,
                                              libvlc_navigate_left, libvlc_navigate_right};
  if (place_.domain == Menu) post([way = kWays[towards]](Engine& engine) { engine.navigate(way); });
}

// libVLC has one door to the menus for both.
void DvdPlayerVlc::ShowMenu(MenuId) {
  if (state_ != Stopped) post([](Engine& engine) { engine.showMenu(); });
}

void DvdPlayerVlc::PlayPrevChapter() {
  if (place_.domain == Title) post([](Engine& engine) { engine.chapter(-1); });
}

void DvdPlayerVlc::PlayNextChapter() {
  if (place_.domain == Title) post([](Engine& engine) { engine.chapter(1); });
}

void DvdPlayerVlc::setCurrentTime(int seconds) {
  if (place_.domain != Title) return;
  place_.time = seconds;
  post([seconds](Engine& engine) { engine.seek(seconds); });
}

void DvdPlayerVlc::setVolume(int hundredthsOfDecibel) {
  engine_->volume = vlcVolume(hundredthsOfDecibel);
  if (used_) post([](Engine& engine) { engine.applyLevels(); });
}

void DvdPlayerVlc::setMute(bool on) {
  engine_->mute = on;
  if (used_) post([](Engine& engine) { engine.applyLevels(); });
}

void DvdPlayerVlc::setTrack(TrackKind kind, int id) {
  if (place_.domain != Title) return;
  (kind == TrackKind::Sound ? place_.sound : place_.subtitle) = id;
  post([kind, id](Engine& engine) { engine.setTrack(kind, id); });
}

void DvdPlayerVlc::notify(Notice notice) {
  if (events_) events_->DVDNotify(notice);
}

// A listener may stop the disc in the middle of the news; the rest of it is then none.
void DvdPlayerVlc::heardPlace(int run, const DvdPlace& place) {
  if (run != run_ || state_ == Stopped) return;
  const DvdPlace before = std::exchange(place_, place);
  const std::pair<Notice, bool> news[] = {
      {DomainChange, before.domain != place.domain},
      {TitleChange, before.title != place.title || before.total != place.total ||
                        before.chapters != place.chapters},
      {ChapterStart, before.chapter != place.chapter},
      {CurrentTimeChange, place.domain == Title && state_ == Playing}};
  for (const auto& [notice, is] : news)
    if (is && run == run_) notify(notice);
}

void DvdPlayerVlc::heardEnd(int run, const QString& failure) {
  if (run != run_ || state_ == Stopped) return;
  state_ = Stopped;
  place_ = {};
  ++run_;
  if (!events_) return;
  failure.isEmpty() ? events_->endOfDisc() : events_->failed(failure);
}

}  // namespace korvane
