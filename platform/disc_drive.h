// A drive that plays audio discs: a CD drive of the machine, or the image of a disc in a CUE sheet
// with its BIN beside it. Tracks count from 1. A sector is 1/75 s of sound.
//
// No call here waits for the drive: what it holds is looked up in the background, from open() on
// again and again until close(). All are made from the event loop's thread.
#pragma once

#include <vector>

#include "platform/text.h"

namespace korvane {

constexpr int kSectorsPerSecond = 75;

struct DiscTrack {
  int first = 0, sectors = 0;  // on the disc
  bool audio = true;
  QString title, performer;  // CD-TEXT; empty where the disc has none
  bool operator==(const DiscTrack&) const = default;
};

struct Disc {
  std::vector<DiscTrack> tracks;  // at least one
  QString title, performer;
  QStringList songs;  // of a data disc: paths of its music files where it is mounted
  bool mounted = false;
  bool operator==(const Disc&) const = default;

  bool has(int track) const { return track >= 1 && track <= static_cast<int>(tracks.size()); }
  const DiscTrack& at(int track) const { return tracks[static_cast<size_t>(track - 1)]; }
};

class DiscDrive {
 public:
  // NotReady: no disc, or not known yet. Seek: play() was called and no sound has come out yet.
  enum Mode { NotReady, Open, Stopped, Seek, Playing, Paused };
  struct Place {
    int track = 0, sectors = 0;  // from the beginning of that track; track 0 for nowhere
  };

  // Heard from the event loop, never from inside a call.
  class Events {
   public:
    virtual ~Events() = default;
    virtual void discChanged() = 0;  // the first answer of an opened drive, and every other one
  };

  virtual ~DiscDrive() = default;
  virtual void setEvents(Events* events) = 0;  // not owned; nullptr for silence

  // `source` is a device or the path of a CUE sheet, empty for the machine's first CD drive. What
  // played stops. Opening the same source again keeps what is known of it.
  virtual void open(const QString& source) = 0;
  virtual void close() = 0;
  virtual bool looked() const = 0;  // the drive has answered since it was opened

  // Null while there is none. The drive's; stands until the next turn of the loop.
  virtual const Disc* disc() const = 0;

  // Why there is no disc, or what is wrong with the one at hand; empty when all is well.
  virtual QString trouble() const = 0;

  // From there to the end of the disc's sound. Within the second where it is paused it goes on
  // exactly from there. Nothing when that is no place on the disc.
  virtual void play(int track, int seconds) = 0;
  virtual void pause() = 0;  // before the first sound too; nothing unless something plays
  virtual void stop() = 0;
  virtual void eject() = 0;  // opens the door, a moment later
  virtual Mode mode() const = 0;
  virtual Place place() const = 0;  // what sounds now; while stopped the beginning of the disc
};

}  // namespace korvane
