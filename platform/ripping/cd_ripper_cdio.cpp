#include "platform/ripping/cd_ripper_cdio.h"

namespace korvane {

CdRipperCdio::CdRipperCdio(Pump&, std::shared_ptr<DiscReader>, std::unique_ptr<CdDrives>) {}

}  // namespace korvane
