// The CD drives that the kernel lists (/proc/sys/dev/cdrom/info), without a service beside it.
#pragma once

#include <QTimer>

#include "platform/disc/cd_drives.h"
#include "platform/pump.h"

namespace korvane {

class CdDrivesPlain final : public CdDrives {
 public:
  // The pump is not owned and must outlive this. `root` is where /proc and /sys stand. The list is
  // looked at again every few seconds once it was asked for.
  explicit CdDrivesPlain(Pump& pump, QString root = {});
  std::vector<SwdCDRipper::Drive> drives() const override;
  void eject(const QString& source) override;  // by the kernel's command, on a thread of its own

  // What the user reads: maker and model where they are known, and the device, by which two of a
  // kind differ.
  static QString nameOf(const QString& maker, const QString& model, const QString& device);

 private:
  Pump& pump_;
  const QString root_;
  mutable QTimer look_;
  mutable std::vector<SwdCDRipper::Drive> known_;  // as drives() answered last
};

}  // namespace korvane
