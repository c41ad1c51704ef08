// The media player control: one file at a time, with the members and state numbers of the control
// it stands for. Seconds everywhere.
#pragma once

#include <memory>

#include "platform/sound_stream.h"

namespace korvane {

class MediaPlayer {
 public:
  enum PlayState { Stopped = 0, Paused = 1, Playing = 2, Closed = 6 };

  // Heard from the event loop, never from inside a call.
  class Events {
   public:
    virtual ~Events() = default;
    virtual void endOfStream() = 0;
    virtual void durationKnown(double seconds) = 0;       // after Play, when the stream tells it
    virtual void failed(const QString& description) = 0;  // the file at hand cannot be played
  };

  virtual ~MediaPlayer() = default;
  virtual void setEvents(Events* events) = 0;  // not owned

  virtual void prepare() {}  // gets ready in the background, so that the first song does not wait
  virtual void setFileName(
      const QString& path) = 0;  // opens; what played before ends without an event
  // The same for sound that is made while it plays, told as `name` where it fails. It is cancelled
  // when it is stopped or something else is opened.
  virtual void setStream(std::shared_ptr<SoundStream> stream, const QString& name) = 0;
  virtual void Play() = 0;
  virtual void Pause() = 0;
  virtual void Stop() = 0;
  virtual PlayState playState() const = 0;
  virtual double Duration() const = 0;  // 0 while unknown
  virtual double CurrentPosition() const = 0;
  virtual void setCurrentPosition(double seconds) = 0;
  virtual void setMute(bool on) = 0;
  virtual void setVolume(int hundredthsOfDecibel) = 0;  // 0 is full, -10000 is silence
  virtual bool HasError() const = 0;
  virtual QString ErrorDescription() const = 0;
};

}  // namespace korvane
