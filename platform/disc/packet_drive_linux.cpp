#include "platform/disc/packet_drive_linux.h"

namespace korvane {

std::optional<QByteArray> PacketDriveLinux::read(const QString&, const Command&, int, int) {
  return std::nullopt;
}

}  // namespace korvane
