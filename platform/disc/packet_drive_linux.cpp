#include "platform/disc/packet_drive_linux.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <scsi/sg.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "platform/disc/disc_reader_cdio.h"

namespace korvane {
namespace {

constexpr quint8 kMsf = 2, kLeadOut = 0xAA;
constexpr int kLeadIn = 2 * kSectorsPerSecond;
constexpr quint8 kPositionAndSound = 0x10, kPositionAndData = 0x14;  // the address/control byte

bool hasDisc(int drive) {
  const int status = ioctl(drive, CDROM_DRIVE_STATUS, CDSL_CURRENT);
  return status == CDS_DISC_OK || status == CDS_NO_INFO;
}

std::optional<QByteArray> ask(int drive, const PacketDrive::Command& command, int length,
                              int seconds) {
  QByteArray answer(length, '\0');
  std::array<quint8, 14> sense{};
  PacketDrive::Command sent = command;
  sg_io_hdr_t request{};
  request.interface_id = 'S';
  request.dxfer_direction = SG_DXFER_FROM_DEV;
  request.cmdp = sent.data();
  request.cmd_len = static_cast<unsigned char>(sent.size());
  request.dxferp = answer.data();
  request.dxfer_len = static_cast<unsigned>(length);
  request.sbp = sense.data();
  request.mx_sb_len = static_cast<unsigned char>(sense.size());
  request.timeout = static_cast<unsigned>(seconds) * 1000;
  if (ioctl(drive, SG_IO, &request) != 0 || request.status != 0 || request.host_status != 0)
    return std::nullopt;
  answer.chop(std::clamp(request.resid, 0, length));
  return answer;
}

// A descriptor of the table; `sector` counts from the first behind the lead-in.
void addDescriptor(QByteArray& table, quint8 number, bool audio, int sector) {
  const int frames = sector + kLeadIn, seconds = frames / kSectorsPerSecond;
  const int bytes[] = {0,
                       audio ? kPositionAndSound : kPositionAndData,
                       number,
                       0,
                       0,
                       seconds / 60,
                       seconds % 60,
                       frames % kSectorsPerSecond};
  for (const int byte : bytes) table += static_cast<char>(byte);
}

}  // namespace

std::optional<QByteArray> tocAnswer(const Disc& disc, const PacketDrive::Command& command,
                                    int length) {
  const PacketDrive::Command plain{
      GPCMD_READ_TOC_PMA_ATIP, kMsf, 0, 0, 0, 0, 0, command[7], command[8]};
  constexpr int kMostMinutes = 255, kBehindAll = kMostMinutes * 60 * kSectorsPerSecond;
  if (command != plain || !disc.has(1)) return std::nullopt;
  const DiscTrack& last = disc.tracks.back();
  if (last.first + last.sectors >= kBehindAll) return std::nullopt;

  QByteArray table;
  const int count = static_cast<int>(disc.tracks.size());
  for (int track = 1; track <= count; ++track)
    addDescriptor(table, static_cast<quint8>(track), disc.at(track).audio, disc.at(track).first);
  addDescriptor(table, kLeadOut, last.audio, last.first + last.sectors);
  const qsizetype behindLength = table.size() + 2;
  const char head[] = {static_cast<char>(behindLength >> 8), static_cast<char>(behindLength), 1,
                       static_cast<char>(count)};
  table.prepend(head, sizeof head);
  return table.left(std::min(command[7] << 8 | command[8], length));
}

std::optional<QByteArray> PacketDriveLinux::read(const QString& source, const Command& command,
                                                 int length, int seconds) {
  const QByteArray path = discPath(source);
  if (path.isEmpty()) return std::nullopt;
  if (!isDevice(path)) {
    const DiscLook look = DiscReaderCdio().look(source, {});
    if (look.state != DiscLook::Ready) return std::nullopt;
    return tocAnswer(look.disc, command, length);
  }
  const int drive = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (drive < 0) return std::nullopt;
  // A drive without a disc would hold a command until its time is over.
  const std::optional<QByteArray> answer =
      hasDisc(drive) ? ask(drive, command, length, seconds) : std::nullopt;
  ::close(drive);
  return answer;
}

}  // namespace korvane
