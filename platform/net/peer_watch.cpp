#include "platform/net/peer_watch.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <QTcpSocket>

namespace korvane {

void watchPeer(QTcpSocket& socket) {
  socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
  socket.setSocketOption(QAbstractSocket::KeepAliveOption, 1);
  const int handle = static_cast<int>(socket.socketDescriptor());
  const auto set = [handle](int option, int value) {
    setsockopt(handle, IPPROTO_TCP, option, &value, sizeof value);
  };
  set(TCP_KEEPIDLE, 5);
  set(TCP_KEEPINTVL, 2);
  set(TCP_KEEPCNT, 2);
  set(TCP_USER_TIMEOUT, 9000);
}

}  // namespace korvane
