// A player that keeps what was asked of it and ends, fails or learns its length when the test says
// so.
#pragma once

#include <map>

#include "platform/media_player.h"

namespace korvane {

class FakeMediaPlayer : public MediaPlayer {
 public:
  void setEvents(Events* events) override { events_ = events; }
  void setFileName(const QString& path) override {
    calls << u"open "_s + path;
    state_ = Stopped;
    CurrentPositionValue = 0;
    error_ = errors.contains(path) ? errors.at(path) : QString();
  }
  void setStream(std::shared_ptr<SoundStream>, const QString& name) override {
    calls << u"stream "_s + name;
    state_ = Stopped;
    CurrentPositionValue = 0;
    error_.clear();
  }
  void Play() override {
    calls << u"play"_s;
    state_ = Playing;
  }
  void Pause() override {
    calls << u"pause"_s;
    state_ = Paused;
  }
  void Stop() override {
    calls << u"stop"_s;
    state_ = Stopped;
  }
  PlayState playState() const override { return state_; }
  double Duration() const override { return DurationValue; }
  double CurrentPosition() const override { return CurrentPositionValue; }
  void setCurrentPosition(double seconds) override {
    calls << u"seek %1"_s.arg(seconds);
    CurrentPositionValue = seconds;
  }
  void setMute(bool on) override { calls << (on ? u"mute"_s : u"unmute"_s); }
  void setVolume(int level) override { calls << u"volume %1"_s.arg(level); }
  bool HasError() const override { return !error_.isEmpty(); }
  QString ErrorDescription() const override { return error_; }

  void end() {
    state_ = Stopped;
    events_->endOfStream();
  }
  void tellDuration(double seconds) {
    DurationValue = seconds;
    events_->durationKnown(seconds);
  }
  void fail(const QString& description) {
    state_ = Stopped;
    error_ = description;
    events_->failed(description);
  }

  QStringList calls;
  double DurationValue = 0, CurrentPositionValue = 0;
  std::map<QString, QString> errors;  // of files that cannot be opened

 private:
  Events* events_ = nullptr;
  PlayState state_ = Stopped;
  QString error_;
};

}  // namespace korvane
