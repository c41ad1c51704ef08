// A console that hears "stopped" stops its own transport, which sends STOP. By then another console
// may have begun something, which that late echo must not end.
#pragma once

#include <map>

#include "platform/tcp_server.h"

namespace korvane {

class StopEcho {
 public:
  using Peer = TcpServer::Peer;

  // These peers hear of a stop now; `asker`, if it is among them, will not answer with one.
  void note(const QList<Peer>& peers, Peer asker, qint64 nowMs);
  // Whether the STOP that this peer sends may be such an answer. Each peer has one.
  bool take(Peer peer, qint64 nowMs);
  void forget(Peer peer) { until_.erase(peer); }

 private:
  std::map<Peer, qint64> until_;
};

}  // namespace korvane
