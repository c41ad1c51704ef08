// The player of movie files: one file at a time, its pictures as frames in memory, its sound on the
// machine's output. Seconds everywhere.
//
// Two parties share it. Who plays has the VideoPlayer; the widget that paints has its VideoPicture
// and nothing else. Both call from the thread of the event loop only and are called there, never
// from inside a call of theirs. No call waits for the disk, the decoder or a device.
#pragma once

#include <memory>

#include "platform/media_track.h"

namespace korvane {

// One picture, as the decoder left it. Nobody writes into it while it is held.
struct VideoFrame {
  const uchar* pixels = nullptr;  // rows from the top; a pixel is the 32-bit number 0xffRRGGBB
  int width = 0, height = 0;      // pixels
  qsizetype rowBytes = 0;         // from the beginning of a row to that of the next
};

// How a picture of another shape than its room is laid into it.
enum class VideoFit {
  Whole,      // all of it, as large as fits, in its own shape
  Filled,     // in its own shape over the whole room; what goes beyond is cut off
  Stretched,  // over the whole room in the room's shape
};

// Where the pictures come out. A frame is written once, by the decoder, into memory of the
// player's, and painted from there: nothing copies it between.
class VideoPicture {
 public:
  class Events {
   public:
    virtual ~Events() = default;
    // newest() is another frame, or none any more. Called again only after newest() was called, so
    // a slow painter has one call waiting and not one a frame.
    virtual void pictureChanged() = 0;
  };

  virtual ~VideoPicture() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence

  // The room for the picture, in device pixels. Frames come in the size that the fit gives them
  // there, so that they are painted unscaled, in the middle of the room. After a change the frame
  // at hand still has the old size, until the next one; in a pause a new one of the same moment
  // comes. A room of no width or height stops the making of frames; the sound goes on.
  virtual void setRoom(int width, int height, VideoFit fit) = 0;

  // The newest frame, null before the first and once the file is closed. It may be held as long as
  // its holder likes, beyond the life of the player too; its memory is used again once let go. A
  // painter holds one, until it takes the next: the player never waits for a frame to come back,
  // and drops new ones while two or more are held.
  virtual std::shared_ptr<const VideoFrame> newest() = 0;
};

class VideoPlayer {
 public:
  enum State { Closed, Stopped, Paused, Playing };  // Closed: no file at hand

  class Events {
   public:
    virtual ~Events() = default;
    // The file at hand came to its end; it is Stopped, and its last frame stays.
    virtual void endOfMovie() = 0;
    virtual void durationKnown(double seconds) = 0;  // after play(); again when it was a guess
    virtual void tracksChanged() {}                  // tracks() are others, or known now

    // The file at hand cannot be opened, or not played any further; it is Closed. Which file and
    // why, for a message.
    virtual void failed(const QString& description) = 0;
  };

  virtual ~VideoPlayer() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence
  virtual VideoPicture& picture() = 0;         // lives as long as the player

  // Takes the file at hand, Stopped; what was at hand before is closed without news. What is wrong
  // with it comes as failed(). A file without pictures plays its sound and never has a frame.
  virtual void open(const QString& path) = 0;
  virtual void close() = 0;  // lets go of the file and of the sound output; no news

  virtual void play() = 0;   // from the beginning, or on from a pause; nothing while Closed
  virtual void pause() = 0;  // nothing unless Playing; the frame at hand stays
  virtual void stop() = 0;   // to the beginning; no news
  virtual State state() const = 0;

  virtual double duration() const = 0;                  // 0 while unknown
  virtual double position() const = 0;                  // 0 while Closed or Stopped
  virtual void setPosition(double seconds) = 0;         // nothing while Closed or Stopped
  virtual int volume() const = 0;                       // as last set; full before that
  virtual void setVolume(int hundredthsOfDecibel) = 0;  // 0 is full, -10000 is silence
  virtual void setMute(bool on) = 0;                    // beside the volume, which it leaves alone

  // Of the file at hand once it plays; empty before. For subtitles those that a file beside the
  // movie holds are among them, named by what its name has beyond the movie's.
  virtual QList<MediaTrack> tracks(TrackKind kind) const = 0;
  virtual int track(TrackKind kind) const = 0;  // the one chosen; MediaTrack::kNone for none
  virtual void setTrack(TrackKind kind, int id) = 0;
};

}  // namespace korvane
