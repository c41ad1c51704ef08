#include "platform/video/dvd_drive.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/video/dvd_check.h"

namespace korvane {
namespace {

constexpr const char* kDrives[] = {"/dev/dvd", "/dev/sr0", "/dev/sr1", "/dev/cdrom"};

class Opened {
 public:
  explicit Opened(const QByteArray& device)
      : file_(::open(device.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
  ~Opened() {
    if (file_ >= 0) ::close(file_);
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  int file() const { return file_; }
  bool isImage() const {
    struct stat status {};
    return file_ >= 0 && fstat(file_, &status) == 0 && S_ISREG(status.st_mode);
  }

 private:
  int file_;
};

}  // namespace

QByteArray firstDvdDrive() {
  for (const char* drive : kDrives)
    if (access(drive, F_OK) == 0) return drive;
  return {};
}

bool dvdInDrive(const QByteArray& device) {
  const Opened drive(device);
  return drive.file() >= 0 &&
         (drive.isImage() || ioctl(drive.file(), CDROM_DRIVE_STATUS, CDSL_CURRENT) == CDS_DISC_OK);
}

QString dvdDriveFault(const QByteArray& device) {
  if (device.isEmpty()) return u"Cannot play a DVD: this machine has no DVD drive."_s;
  if (!dvdInDrive(device)) return u"Cannot play a DVD: there is no disc in the drive."_s;
  const Opened drive(device);
  dvd_struct disc{};
  disc.copyright.type = DVD_STRUCT_COPYRIGHT;
  if (drive.isImage() || ioctl(drive.file(), DVD_READ_STRUCT, &disc) != 0) return {};
  if (disc.copyright.cpst != 0 && !readsScrambledDvds())
    return u"Cannot play the DVD: it is encrypted, and libdvdcss is not installed."_s;
  dvd_authinfo region{};
  region.type = DVD_LU_SEND_RPC_STATE;
  // Both masks have a bit for each region in which playing is not allowed; a drive without a region
  // has all of them set.
  if (ioctl(drive.file(), DVD_AUTH, &region) == 0 && region.lrpcs.type != 0) {
    const unsigned drives = ~unsigned{region.lrpcs.region_mask} & 0xff;
    if ((disc.copyright.rmi & drives) != 0)
      return u"Cannot play the DVD: it is of another region than the drive."_s;
  }
  return {};
}

}  // namespace korvane
