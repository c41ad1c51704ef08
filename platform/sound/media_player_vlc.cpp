#include "platform/sound/media_player_vlc.h"

#include <QFileInfo>

#include "platform/sound/music_engine.h"

namespace korvane {

MediaPlayerVlc::MediaPlayerVlc(Pump& pump, QStringList arguments)
    : engine_(std::make_shared<Engine>(*this, pump, std::move(arguments))) {}

MediaPlayerVlc::~MediaPlayerVlc() {
  if (stream_) stream_->cancel();
  engine_->quit();
}

void MediaPlayerVlc::prepare() {
  engine_->post([engine = engine_.get()] { engine->makeSoon(); });
}

void MediaPlayerVlc::openNew(const QString& path, std::shared_ptr<SoundStream> stream) {
  if (stream_) stream_->cancel();
  path_ = path;
  stream_ = std::move(stream);
  state_ = Stopped;
  duration_ = 0;
  ended_ = false;
  ++generation_;
}

void MediaPlayerVlc::setStream(std::shared_ptr<SoundStream> stream, const QString& name) {
  openNew(name, std::move(stream));
  error_.clear();
  engine_->positionMs = 0;
  engine_->post([engine = engine_.get(), number = generation_, name, sound = stream_] {
    engine->open(number, name, sound);
  });
}

void MediaPlayerVlc::setFileName(const QString& path) {
  openNew(path, nullptr);
  const QFileInfo file(path);
  error_ = !file.isFile()       ? u"Cannot play %1: there is no such file."_s.arg(path)
           : !file.isReadable() ? u"Cannot play %1: the file may not be read."_s.arg(path)
                                : QString();
  if (HasError())
    engine_->post([engine = engine_.get()] { engine->stop(); });
  else
    engine_->post(
        [engine = engine_.get(), number = generation_, path] { engine->open(number, path); });
}

void MediaPlayerVlc::Play() {
  if (path_.isEmpty() || HasError() || state_ == Playing) return;
  if (state_ == Paused)
    engine_->post([engine = engine_.get()] { engine->setPause(false); });
  else if (ended_)
    engine_->post([engine = engine_.get(), number = ++generation_, path = path_, stream = stream_] {
      engine->open(number, path, stream);
      engine->play();
    });
  else
    engine_->post([engine = engine_.get()] { engine->play(); });
  ended_ = false;
  state_ = Playing;
}

void MediaPlayerVlc::Pause() {
  if (state_ != Playing) return;
  state_ = Paused;
  engine_->post([engine = engine_.get()] { engine->setPause(true); });
}

void MediaPlayerVlc::Stop() {
  state_ = Stopped;
  if (stream_) stream_->cancel();
  engine_->post([engine = engine_.get()] { engine->stop(); });
}

double MediaPlayerVlc::CurrentPosition() const {
  return state_ == Stopped ? 0 : static_cast<double>(engine_->positionMs) / 1000;
}

void MediaPlayerVlc::setCurrentPosition(double seconds) {
  if (state_ == Stopped || stream_) return;
  engine_->positionMs = static_cast<qint64>(seconds * 1000);
  engine_->post([engine = engine_.get(), seconds] { engine->seek(seconds); });
}

void MediaPlayerVlc::setMute(bool on) {
  engine_->mute = on;
  if (generation_ > 0) engine_->post([engine = engine_.get()] { engine->applyLevels(); });
}

void MediaPlayerVlc::setVolume(int hundredthsOfDecibel) {
  engine_->volume = vlcVolume(hundredthsOfDecibel);
  if (generation_ > 0) engine_->post([engine = engine_.get()] { engine->applyLevels(); });
}

MediaPlayerVlc::Marks MediaPlayerVlc::marks() const {
  return {engine_->endReached, engine_->playCalled};
}

void MediaPlayerVlc::heard(const Report& report) {
  if (report.generation != generation_ || ended_) return;
  switch (report.kind) {
    case Report::Length:
      duration_ = report.seconds;
      if (events_) events_->durationKnown(duration_);
      return;
    case Report::End:
    case Report::Failure:
      ended_ = true;
      error_ = report.description;
      // After a stop that was asked for meanwhile nobody waits for this.
      if (std::exchange(state_, Stopped) == Stopped || !events_) return;
      report.kind == Report::End ? events_->endOfStream() : events_->failed(error_);
  }
}

}  // namespace korvane
