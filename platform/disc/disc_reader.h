// What reads discs, for a drive. Every call may block as long as the machine likes and is made on
// threads that nobody waits for.
#pragma once

#include <memory>
#include <optional>

#include "platform/disc_drive.h"

namespace korvane {

constexpr int kSectorBytes = 2352;  // 16-bit little-endian stereo at 44,100 Hz

struct DiscLook {
  enum State { NoDrive, DoorOpen, NoDisc, Ready } state = NoDrive;
  Disc disc;        // when Ready
  QString trouble;  // as DiscDrive tells it
  QByteArray mark;  // the reader's own, to know an unchanged disc by
  bool operator==(const DiscLook&) const = default;
};

class SectorReader {
 public:
  virtual ~SectorReader() = default;
  virtual bool read(int first, int count, char* to) = 0;  // all of them, or false
};

class DiscReader {
 public:
  virtual ~DiscReader() = default;
  virtual DiscLook look(const QString& source, const DiscLook& before) = 0;
  virtual std::unique_ptr<SectorReader> sectors(const QString& source) = 0;  // null when it fails
  virtual void eject(const QString& source) = 0;
};

}  // namespace korvane
