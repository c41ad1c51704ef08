// Files between this console and an FTP server.
#pragma once

#include "core/desk.h"
#include "ftp/ftp_form.h"

namespace korvane {

class FtpSide {
 public:
  explicit FtpSide(Desk& desk);

  FtpForm form;
};

}  // namespace korvane
