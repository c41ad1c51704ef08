// The player of movie files over libVLC. What is asked is only kept here and done, in order, on the
// thread of its VlcEngine; what libVLC reports comes back through the pump, marked with the run of
// the file that it belongs to, and is dropped once that is not the one at hand.
#pragma once

#include "platform/pump.h"
#include "platform/video_player.h"

namespace korvane {

class VideoPlayerVlc final : public VideoPlayer {
 public:
  // `arguments` as VlcEngine takes them. The pump must outlive this; not owned.
  explicit VideoPlayerVlc(Pump& pump, QStringList arguments = {});
  ~VideoPlayerVlc() override;  // at most 1 s, even when a device hangs

  // What it decodes gives way to all other work of the machine; before the first open().
  void beNice();

  void setEvents(Events* events) override { events_ = events; }
  VideoPicture& picture() override;
  void open(const QString& path) override;
  void close() override;
  void play() override;
  void pause() override;
  void stop() override;
  State state() const override { return state_; }
  double duration() const override { return duration_; }
  double position() const override;  // a quarter of a second old at most
  void setPosition(double seconds) override;
  int volume() const override { return volume_; }
  void setVolume(int hundredthsOfDecibel) override;
  void setMute(bool on) override;
  QList<MediaTrack> tracks(TrackKind kind) const override { return list(kind).all; }
  int track(TrackKind kind) const override { return list(kind).chosen; }
  void setTrack(TrackKind kind, int id) override;

 private:
  class Engine;
  friend class Engine;
  struct Choice {
    QList<MediaTrack> all;
    int chosen = MediaTrack::kNone;
  };
  const Choice& list(TrackKind kind) const {
    return kind == TrackKind::Sound ? sounds_ : subtitles_;
  }
  void forget(State state);
  void heardLength(int file, double seconds);
  void heardTracks(int file, Choice sounds, Choice subtitles);
  void heardEnd(int run);
  void heardFailure(int file, const QString& description);

  std::shared_ptr<Engine> engine_;
  Events* events_ = nullptr;
  State state_ = Closed;
  double duration_ = 0;
  int volume_ = 0;
  int file_ = 0, run_ = 0;  // numbers of the file at hand, and of its playing since open or stop
  Choice sounds_, subtitles_;
};

}  // namespace korvane
