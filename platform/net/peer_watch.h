// The options of a TCP connection that both of its ends set: no delay for small writes, and a peer
// that lost its power is noticed within ten seconds.
#pragma once

class QTcpSocket;

namespace korvane {

void watchPeer(QTcpSocket& socket);

}  // namespace korvane
