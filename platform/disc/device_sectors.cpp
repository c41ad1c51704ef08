#include "platform/disc/device_sectors.h"

#include <fcntl.h>
#include <scsi/sg.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstring>

namespace korvane {
namespace {

constexpr int kErrorBytes = 294;  // a bit for each byte of a sector
constexpr int kAtOnce = 24;       // with those bits under 64 KiB, which every adapter carries
constexpr unsigned kLimitMs = 10'000;
constexpr quint8 kIllegalRequest = 5;

quint8 byteOf(int number, int shift) {
  return static_cast<quint8>(number >> shift);
}

}  // namespace

std::unique_ptr<DeviceSectors> DeviceSectors::open(const QByteArray& device, bool pointing) {
  const int file = ::open(device.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return nullptr;
  return std::unique_ptr<DeviceSectors>(new DeviceSectors(file, pointing));
}

DeviceSectors::~DeviceSectors() {
  ::close(file_);
}

bool DeviceSectors::read(int first, int count, char* to) {
  for (int done = 0; done < count; done += kAtOnce) {
    const int some = std::min(kAtOnce, count - done);
    char* there = to + qsizetype{done} * kSectorBytes;
    const bool good = pointing_ ? readPointing(first + done, some, there)
                                : command(first + done, some, false, there) == Good;
    if (!good) return false;
  }
  return true;
}

bool DeviceSectors::readPointing(int first, int count, char* to) {
  constexpr qsizetype kBoth = kSectorBytes + kErrorBytes;
  room_.resize(kAtOnce * kBoth);
  const Answer answer = command(first, count, true, room_.data());
  if (answer == Refused) {
    const bool good = command(first, count, false, to) == Good;
    pointing_ = !good;  // the drive knows no such thing, or it was the sectors that it refused
    return good;
  }
  for (int i = 0; i < count && answer == Good; ++i) {
    const QByteArrayView sector = QByteArrayView(room_).sliced(i * kBoth, kBoth);
    if (std::ranges::any_of(sector.last(kErrorBytes), [](char bits) { return bits != 0; }))
      return false;
    std::memcpy(to + qsizetype{i} * kSectorBytes, sector.data(), kSectorBytes);
  }
  return answer == Good;
}

DeviceSectors::Answer DeviceSectors::command(int first, int count, bool pointing, char* to) const {
  // READ CD: CD-DA sectors, their user data, with or without the C2 error bits.
  std::array<quint8, 12> bytes{0xBE,
                               0x04,
                               byteOf(first, 24),
                               byteOf(first, 16),
                               byteOf(first, 8),
                               byteOf(first, 0),
                               byteOf(count, 16),
                               byteOf(count, 8),
                               byteOf(count, 0),
                               static_cast<quint8>(pointing ? 0x12 : 0x10)};
  std::array<quint8, 32> sense{};
  sg_io_hdr_t request{};
  request.interface_id = 'S';
  request.dxfer_direction = SG_DXFER_FROM_DEV;
  request.cmd_len = bytes.size();
  request.cmdp = bytes.data();
  request.mx_sb_len = sense.size();
  request.sbp = sense.data();
  request.dxfer_len = static_cast<unsigned>(count * (kSectorBytes + (pointing ? kErrorBytes : 0)));
  request.dxferp = to;
  request.timeout = kLimitMs;
  if (::ioctl(file_, SG_IO, &request) != 0) return Failed;
  if ((request.info & SG_INFO_OK_MASK) == SG_INFO_OK) return request.resid == 0 ? Good : Failed;
  return (sense[2] & 0x0F) == kIllegalRequest ? Refused : Failed;
}

}  // namespace korvane
