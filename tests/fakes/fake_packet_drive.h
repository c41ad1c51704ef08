// A drive that answers packet commands with what a test has laid ready.
#pragma once

#include "platform/packet_drive.h"

namespace korvane {

class FakePacketDrive : public PacketDrive {
 public:
  std::optional<QByteArray> answer;  // to every command
  QList<std::pair<QString, QByteArray>> asked;
  int length = 0, seconds = 0;  // asked for last

  std::optional<QByteArray> read(const QString& source, const Command& command, int most,
                                 int limit) override {
    asked.append({source, QByteArray(reinterpret_cast<const char*>(command.data()), 10)});
    length = most;
    seconds = limit;
    return answer ? std::optional(answer->left(most)) : std::nullopt;
  }
};

}  // namespace korvane
