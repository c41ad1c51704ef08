// A connection to an FTP server (RFC 959), of whoever makes it.
#pragma once

#include "platform/text.h"

namespace korvane {

class FtpClient {
 public:
  virtual ~FtpClient() = default;
};

}  // namespace korvane
