// Packet commands by the kernel's generic interface of SCSI devices (scsi/sg.h, SG_IO), which takes
// those that only read from a user who may open the drive. An image has no drive: its answer to
// READ TOC is made from its sheet.
#pragma once

#include "platform/disc_drive.h"
#include "platform/packet_drive.h"

namespace korvane {

class PacketDriveLinux final : public PacketDrive {
 public:
  std::optional<QByteArray> read(const QString& source, const Command& command, int length,
                                 int seconds) override;
};

// The answer of a drive with that disc to READ TOC, in minutes, seconds and frames, format 0, cut
// at the length that the command asks for and at `length`. Nothing for every other command.
std::optional<QByteArray> tocAnswer(const Disc& disc, const PacketDrive::Command& command,
                                    int length);

}  // namespace korvane
