#include "platform/video/dvd_drive.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr unsigned kEveryRegion = 0xff;

// The region that the drive plays, from its mask of those that it does not; 0 while none is set.
int regionOf(int drive) {
  dvd_authinfo info{};
  info.type = DVD_LU_SEND_RPC_STATE;
  if (ioctl(drive, DVD_AUTH, &info) != 0) return 0;
  const unsigned played = ~unsigned{info.lrpcs.region_mask} & kEveryRegion;
  return played == kEveryRegion || played == 0 ? 0 : std::countr_zero(played) + 1;
}

void readCopyright(int drive, DvdDriveLook& look) {
  dvd_struct answer{};
  answer.type = DVD_STRUCT_COPYRIGHT;
  if (ioctl(drive, DVD_READ_STRUCT, &answer) != 0) return;
  look.encrypted = answer.copyright.cpst != 0;
  look.forbidden = answer.copyright.rmi;
}

}  // namespace

DvdDriveLook DvdDriveLinux::look(bool closely) {
  DvdDriveLook look;
  for (const QString& device : devices_) {
    const int drive = open(fromPath(device).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (drive < 0) continue;
    const int status = ioctl(drive, CDROM_DRIVE_STATUS, CDSL_CURRENT);
    if (status >= 0) {
      look.device = device;
      look.state = status == CDS_DISC_OK ? DvdDriveLook::Disc : DvdDriveLook::NoDisc;
      if (closely && look.state == DvdDriveLook::Disc) {
        readCopyright(drive, look);
        look.region = regionOf(drive);
      }
    }
    close(drive);
    if (look.state != DvdDriveLook::NoDrive) break;
  }
  return look;
}

}  // namespace korvane
