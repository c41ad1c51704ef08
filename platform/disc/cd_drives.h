// The CD drives of the machine: which there are, that one came or went, and their doors.
#pragma once

#include <functional>

#include "platform/cd_ripper.h"

namespace korvane {

class CdDrives {
 public:
  virtual ~CdDrives() = default;
  virtual std::vector<SwdCDRipper::Drive> drives() const = 0;
  virtual void eject(const QString& source) = 0;  // a moment later
  std::function<void()> changed = [] {};          // from the event loop; drives() tells others now
};

}  // namespace korvane
