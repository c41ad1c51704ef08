// The network through Linux: echoes over an ICMP datagram socket (RFC 792; icmp(7)), which needs no
// right but that the group of the process lies in net.ipv4.ping_group_range.
#pragma once

#include <memory>

#include "platform/network.h"

namespace korvane {

class NetworkLinux final : public Network {
 public:
  NetworkLinux();
  ~NetworkLinux() override;

  void ping(const QString& address, int timeoutMs,
            std::function<void(EchoStatus)> answered) override;
  void cancelPing() override;
  QStringList localIPAddresses() const override;

 private:
  class Echo;
  std::unique_ptr<Echo> echo_;
};

}  // namespace korvane
