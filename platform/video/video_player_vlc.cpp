#include "platform/video/video_player_vlc.h"

#include <sys/resource.h>

#include "platform/video/video_engine.h"
#include "platform/vlc/vlc_volume.h"

namespace korvane {

VideoPlayerVlc::VideoPlayerVlc(Pump& pump, QStringList arguments)
    : engine_(std::make_shared<Engine>(*this, pump, std::move(arguments))) {}

VideoPlayerVlc::~VideoPlayerVlc() {
  engine_->quit();
}

// libVLC's threads take it over from the one that begins them.
void VideoPlayerVlc::beNice() {
  constexpr int kNice = 15;
  engine_->post([] { setpriority(PRIO_PROCESS, 0, kNice); });
}

VideoPicture& VideoPlayerVlc::picture() {
  return engine_->frames;
}

void VideoPlayerVlc::forget(State state) {
  state_ = state;
  duration_ = 0;
  sounds_ = subtitles_ = {};
  ++run_;
  engine_->positionMs = 0;
  engine_->frames.expect(++file_);
}

void VideoPlayerVlc::open(const QString& path) {
  forget(Stopped);
  engine_->post([engine = engine_.get(), file = file_, path] { engine->open(file, path); });
}

void VideoPlayerVlc::close() {
  if (state_ == Closed) return;
  forget(Closed);
  engine_->post([engine = engine_.get()] { engine->close(); });
}

void VideoPlayerVlc::play() {
  if (state_ == Closed || state_ == Playing) return;
  if (std::exchange(state_, Playing) == Paused)
    return engine_->post([engine = engine_.get()] { engine->setPause(false); });
  engine_->positionMs = 0;
  engine_->post([engine = engine_.get(), run = ++run_] { engine->play(run); });
}

void VideoPlayerVlc::pause() {
  if (state_ != Playing) return;
  state_ = Paused;
  engine_->post([engine = engine_.get()] { engine->setPause(true); });
}

void VideoPlayerVlc::stop() {
  if (state_ == Closed || state_ == Stopped) return;
  state_ = Stopped;
  ++run_;
  engine_->post([engine = engine_.get()] { engine->stop(); });
}

double VideoPlayerVlc::position() const {
  return state_ <= Stopped ? 0 : static_cast<double>(engine_->positionMs) / 1000;
}

void VideoPlayerVlc::setPosition(double seconds) {
  if (state_ <= Stopped) return;
  engine_->positionMs = static_cast<qint64>(seconds * 1000);
  engine_->post([engine = engine_.get(), seconds] { engine->seek(seconds); });
}

void VideoPlayerVlc::setVolume(int hundredthsOfDecibel) {
  volume_ = hundredthsOfDecibel;
  engine_->volume = vlcVolume(hundredthsOfDecibel);
  if (file_ > 0) engine_->post([engine = engine_.get()] { engine->applyLevels(); });
}

void VideoPlayerVlc::setMute(bool on) {
  engine_->mute = on;
  if (file_ > 0) engine_->post([engine = engine_.get()] { engine->applyLevels(); });
}

void VideoPlayerVlc::setTrack(TrackKind kind, int id) {
  if (state_ <= Stopped) return;
  (kind == TrackKind::Sound ? sounds_ : subtitles_).chosen = id;
  engine_->post([engine = engine_.get(), kind, id] { engine->setTrack(kind, id); });
}

void VideoPlayerVlc::heardLength(int file, double seconds) {
  if (file != file_) return;
  duration_ = seconds;
  if (events_) events_->durationKnown(seconds);
}

void VideoPlayerVlc::heardTracks(int file, Choice sounds, Choice subtitles) {
  if (file != file_ || state_ <= Stopped) return;
  sounds_ = std::move(sounds);
  subtitles_ = std::move(subtitles);
  if (events_) events_->tracksChanged();
}

void VideoPlayerVlc::heardEnd(int run) {
  if (run != run_ || state_ <= Stopped) return;
  state_ = Stopped;
  if (events_) events_->endOfMovie();
}

void VideoPlayerVlc::heardFailure(int file, const QString& description) {
  if (file != file_) return;
  forget(Closed);
  if (events_) events_->failed(description);
}

}  // namespace korvane
