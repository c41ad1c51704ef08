// The CD drives that the kernel lists (/proc/sys/dev/cdrom/info), without a service beside it.
#pragma once

#include "platform/disc/cd_drives.h"

namespace korvane {

class CdDrivesPlain final : public CdDrives {
 public:
  std::vector<SwdCDRipper::Drive> drives() const override { return {}; }
  void eject(const QString&) override {}
};

}  // namespace korvane
