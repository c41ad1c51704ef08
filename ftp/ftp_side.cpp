#include "ftp/ftp_side.h"

namespace korvane {

FtpSide::FtpSide(Desk&) {}

}  // namespace korvane
