// The media player over libVLC.
//
// libVLC's calls may block while a device or a disk is slow, so all of them are made, in order, on
// one thread of the player's own. The members here only keep what was asked and return at once.
// What libVLC reports comes back through the pump, marked with the file it belongs to; a report of
// a file that is no longer at hand is dropped.
#pragma once

#include <chrono>
#include <memory>

#include "platform/media_player.h"
#include "platform/pump.h"
#include "platform/vlc/vlc_volume.h"

namespace korvane {

class MediaPlayerVlc final : public MediaPlayer {
 public:
  using Clock = std::chrono::steady_clock;

  // `arguments` and then the words of $KORVANE_VLC_ARGS are added to libVLC's own, such as
  // "--aout=adummy" for a machine without a sound device. The pump must outlive this; not owned.
  explicit MediaPlayerVlc(Pump& pump, QStringList arguments = {});
  ~MediaPlayerVlc() override;  // at most 1 s, even when the sound device hangs

  void prepare() override;

  void setEvents(Events* events) override { events_ = events; }
  void setFileName(const QString& path) override;
  void setStream(std::shared_ptr<SoundStream> stream, const QString& name) override;
  void Play() override;
  void Pause() override;
  void Stop() override;
  PlayState playState() const override { return state_; }
  double Duration() const override { return duration_; }
  double CurrentPosition() const override;  // a quarter of a second old at most
  void setCurrentPosition(double seconds) override;
  void setMute(bool on) override;
  void setVolume(int hundredthsOfDecibel) override;
  bool HasError() const override { return !error_.isEmpty(); }
  QString ErrorDescription() const override { return error_; }

  // For measurements: when libVLC last reported the end of a file, and when it was last started.
  struct Marks {
    Clock::time_point endReached, playCalled;
  };
  Marks marks() const;

 private:
  class Engine;
  friend class Engine;
  struct Report;
  void heard(const Report& report);
  void openNew(const QString& path, std::shared_ptr<SoundStream> stream);

  std::shared_ptr<Engine> engine_;
  Events* events_ = nullptr;
  QString path_, error_;
  std::shared_ptr<SoundStream> stream_;  // what plays, unless it is a file
  PlayState state_ = Stopped;
  double duration_ = 0;
  int generation_ = 0;  // of the file at hand
  bool ended_ = false;  // its end or failure has been heard
};

}  // namespace korvane
