// The machine's drive for DVDs, as far as playing needs it: whether a disc is in it, and what the
// disc and the drive say of regions and encryption.
#pragma once

#include "platform/text.h"

namespace korvane {

struct DvdDriveLook {
  enum State { NoDrive, NoDisc, Disc } state = NoDrive;
  QString device;  // empty for NoDrive

  // Of a disc that was looked at closely; else, and where it does not say, as those of one that
  // plays everywhere.
  bool encrypted = false;
  unsigned forbidden = 0;  // regions that it must not play in; bit 0 is region 1
  int region = 0;          // the drive's own, from 1; 0 for none
};

class DvdDrive {
 public:
  virtual ~DvdDrive() = default;
  // May wait for the drive, above all with `closely`, which reads from the disc; called from a
  // thread of the player's.
  virtual DvdDriveLook look(bool closely) = 0;
};

// The first of the devices that is there.
class DvdDriveLinux final : public DvdDrive {
 public:
  explicit DvdDriveLinux(QStringList devices = {u"/dev/dvd"_s, u"/dev/sr0"_s, u"/dev/sr1"_s})
      : devices_(std::move(devices)) {}
  DvdDriveLook look(bool closely) override;

 private:
  const QStringList devices_;
};

}  // namespace korvane
