#include "services/listener/stop_echo.h"

namespace korvane {

namespace {
constexpr qint64 kEchoMs = 1500;
}

void StopEcho::note(const QList<Peer>& peers, Peer asker, qint64 nowMs) {
  for (const Peer peer : peers)
    if (peer != asker) until_[peer] = nowMs + kEchoMs;
}

bool StopEcho::take(Peer peer, qint64 nowMs) {
  const auto noted = until_.extract(peer);
  return noted && nowMs <= noted.mapped();
}

}  // namespace korvane
