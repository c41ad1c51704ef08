// The media player control: one file at a time, with the members and state numbers of the control
// it stands for. Seconds everywhere. Called from the event loop's thread only; no call waits for
// what plays.
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
    virtual void endOfStream() = 0;                  // Stopped; Play begins the file anew
    virtual void durationKnown(double seconds) = 0;  // after Play; again when it was only a guess

    // The file at hand cannot be played; Stopped, and HasError. Which file and why, for a message.
    virtual void failed(const QString& description) = 0;
  };

  virtual ~MediaPlayer() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence

  virtual void prepare() {}  // gets ready in the background, so that the first song does not wait

  // Takes the file at hand, Stopped; what played before ends without an event. A file that is not
  // there is an error at once (HasError), without failed().
  virtual void setFileName(const QString& path) = 0;

  // The same for sound that is made while it plays; a failure calls it `name`. It cannot be sought,
  // and is cancelled when it is stopped or something else is opened.
  virtual void setStream(std::shared_ptr<SoundStream> stream, const QString& name) = 0;

  virtual void Play() = 0;   // from the beginning, or on from a pause; nothing after an error
  virtual void Pause() = 0;  // nothing unless Playing
  virtual void Stop() = 0;
  virtual PlayState playState() const = 0;  // as asked for here, before the device follows
  virtual double Duration() const = 0;      // 0 while unknown
  virtual double CurrentPosition() const = 0;
  virtual void setCurrentPosition(double seconds) = 0;  // nothing while stopped
  virtual void setMute(bool on) = 0;                    // beside the volume, which it leaves alone
  virtual void setVolume(int hundredthsOfDecibel) = 0;  // 0 is full, -10000 is silence
  virtual bool HasError() const = 0;                    // of the file at hand
  virtual QString ErrorDescription() const = 0;
};

}  // namespace korvane
