// The CD drives that UDisks2 tells of, whose doors it opens without root; where it does not run,
// those that the kernel lists.
#pragma once

#include "platform/disc/cd_drives_plain.h"
#include "platform/machine/udisks.h"

namespace korvane {

class CdDrivesUdisks final : public CdDrives {
 public:
  // The service is first asked when drives() is called;
  // until it has answered the kernel's list holds.
  CdDrivesUdisks(std::unique_ptr<Udisks> udisks, std::unique_ptr<CdDrives> plain);
  std::vector<SwdCDRipper::Drive> drives() const override;
  void eject(const QString& source) override;  // the plain way where the service refuses

 private:
  void look();

  const std::unique_ptr<Udisks> udisks_;
  const std::unique_ptr<CdDrives> plain_;
  mutable std::vector<SwdCDRipper::Drive> known_;  // as drives() answered last
};

// Those of this machine, as best as it can be known. The pump must outlive them.
std::unique_ptr<CdDrives> makeCdDrives(Pump& pump);

}  // namespace korvane
