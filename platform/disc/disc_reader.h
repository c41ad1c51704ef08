// What reads discs, for a drive. Every call may block as long as the machine likes and is made on
// threads that nobody waits for; two threads may call at once.
#pragma once

#include <memory>
#include <optional>

#include "platform/disc_drive.h"

namespace korvane {

constexpr int kSectorBytes = 2352;  // 16-bit little-endian stereo at 44,100 Hz

// What a look at a drive found.
struct DiscLook {
  enum State { NoDrive, DoorOpen, NoDisc, Ready } state = NoDrive;
  Disc disc;        // when Ready
  QString trouble;  // what DiscDrive::trouble() answers
  QByteArray mark;  // the reader's own, to know an unchanged disc by
  bool operator==(const DiscLook&) const = default;
};

// An opened disc's sound.
class SectorReader {
 public:
  virtual ~SectorReader() = default;

  // `count` sectors from `first` of the disc into `to`, which has room for them. False when not all
  // could be read; `to` may hold anything then.
  virtual bool read(int first, int count, char* to) = 0;

  // Of these many sectors read last it may give the same bytes again without a look at the disc.
  virtual int remembered() const { return 0; }
};

class DiscReader {
 public:
  virtual ~DiscReader() = default;
  // What is in the drive or image; `source` as DiscDrive::open() takes it. `before` is the last
  // look at the same source, a fresh one at first: an unchanged disc is not read again.
  virtual DiscLook look(const QString& source, const DiscLook& before) = 0;
  virtual std::unique_ptr<SectorReader> sectors(const QString& source) = 0;  // null when it fails
  // The same for reading with care: a drive that hangs in it keeps no other reader waiting. With
  // `pointing`, a sector in which the drive itself found errors counts as not read.
  virtual std::unique_ptr<SectorReader> carefulSectors(const QString& source, bool /*pointing*/) {
    return sectors(source);
  }
  virtual void eject(const QString& source) = 0;  // an image has no door: nothing
};

}  // namespace korvane
