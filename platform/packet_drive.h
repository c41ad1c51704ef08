// Packet commands of the MMC command set (MMC-3, T10 document 1363-D) to a CD drive, as the kernel
// passes them on. An image of a disc answers READ TOC, command 43h, from its sheet and refuses the
// rest.
#pragma once

#include <array>
#include <optional>

#include "platform/text.h"

namespace korvane {

class PacketDrive {
 public:
  using Command = std::array<quint8, 10>;

  virtual ~PacketDrive() = default;
  // The answer, `length` bytes at most, to a command that reads. Nothing when there is no such
  // drive, when it refuses, or when it is not through in `seconds`. `source` as DiscDrive::open()
  // takes it. Blocks that long; from any thread.
  virtual std::optional<QByteArray> read(const QString& source, const Command& command, int length,
                                         int seconds) = 0;
};

}  // namespace korvane
