// Files between this console and an FTP server.
#pragma once

#include "core/desk.h"

namespace korvane {

class FtpSide {
 public:
  explicit FtpSide(Desk& desk);
};

}  // namespace korvane
