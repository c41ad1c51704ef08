// A player of movie files that keeps what was asked of it. Its pictures, its length, its end and
// its failures come when the test says so, or never.
#pragma once

#include "platform/video_player.h"

namespace korvane {

class FakeVideoPicture : public VideoPicture {
 public:
  void setEvents(Events* events) override { events_ = events; }
  void setRoom(int width, int height, VideoFit fit) override {
    rooms << u"%1x%2 %3"_s.arg(width).arg(height).arg(static_cast<int>(fit));
  }
  std::shared_ptr<const VideoFrame> newest() override { return frame_; }

  // One frame of that colour, 0xffRRGGBB; by 0 none any more.
  void show(int width, int height, quint32 colour) {
    struct Owned : VideoFrame {
      std::vector<quint32> bytes;
    };
    const auto made = std::make_shared<Owned>();
    made->bytes.assign(static_cast<size_t>(width) * static_cast<size_t>(height), colour);
    made->pixels = reinterpret_cast<const uchar*>(made->bytes.data());
    made->width = width;
    made->height = height;
    made->rowBytes = 4 * width;
    frame_ = colour ? made : nullptr;
    if (events_) events_->pictureChanged();
  }

  QStringList rooms;

 private:
  Events* events_ = nullptr;
  std::shared_ptr<const VideoFrame> frame_;
};

class FakeVideoPlayer : public VideoPlayer {
 public:
  void setEvents(Events* events) override { events_ = events; }
  FakeVideoPicture& picture() override { return shown; }
  void open(const QString& path) override {
    calls << u"open "_s + path;
    state_ = Stopped;
    DurationValue = PositionValue = 0;
  }
  void close() override {
    calls << u"close"_s;
    state_ = Closed;
  }
  void play() override {
    calls << u"play"_s;
    if (state_ != Closed) state_ = Playing;
  }
  void pause() override {
    calls << u"pause"_s;
    if (state_ == Playing) state_ = Paused;
  }
  void stop() override {
    calls << u"stop"_s;
    if (state_ != Closed) state_ = Stopped;
    PositionValue = 0;
  }
  State state() const override { return state_; }
  double duration() const override { return DurationValue; }
  double position() const override { return PositionValue; }
  void setPosition(double seconds) override {
    calls << u"seek %1"_s.arg(seconds);
    PositionValue = seconds;
  }
  int volume() const override { return volume_; }
  void setVolume(int level) override {
    calls << u"volume %1"_s.arg(level);
    volume_ = level;
  }
  void setMute(bool on) override { calls << (on ? u"mute"_s : u"unmute"_s); }
  QList<MediaTrack> tracks(TrackKind kind) const override {
    return kind == TrackKind::Sound ? sounds : subtitles;
  }
  int track(TrackKind kind) const override { return kind == TrackKind::Sound ? sound : subtitle; }
  void setTrack(TrackKind kind, int id) override {
    (kind == TrackKind::Sound ? sound : subtitle) = id;
  }

  void end() {
    state_ = Stopped;
    if (events_) events_->endOfMovie();
  }
  void tellDuration(double seconds) {
    DurationValue = seconds;
    if (events_) events_->durationKnown(seconds);
  }
  void fail(const QString& description) {
    state_ = Closed;
    if (events_) events_->failed(description);
  }

  FakeVideoPicture shown;
  QStringList calls;
  double DurationValue = 0, PositionValue = 0;
  QList<MediaTrack> sounds, subtitles;
  int sound = MediaTrack::kNone, subtitle = MediaTrack::kNone;

 private:
  Events* events_ = nullptr;
  State state_ = Closed;
  int volume_ = 0;
};

}  // namespace korvane
