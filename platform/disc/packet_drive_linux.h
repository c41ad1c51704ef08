// Packet commands by the kernel's interface for CD drives (linux/cdrom.h, CDROM_SEND_PACKET).
#pragma once

#include "platform/packet_drive.h"

namespace korvane {

class PacketDriveLinux final : public PacketDrive {
 public:
  std::optional<QByteArray> read(const QString& source, const Command& command, int length,
                                 int seconds) override;
};

}  // namespace korvane
