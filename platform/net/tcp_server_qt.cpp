#include "platform/net/tcp_server_qt.h"

#include <linux/sockios.h>
#include <sys/ioctl.h>

#include <QSet>
#include <QTcpServer>
#include <QTcpSocket>
#include <map>

#include "platform/net/peer_watch.h"

namespace korvane {
namespace {

constexpr qint64 kPiece = 64 << 10;

}  // namespace

class TcpServerQt::Body : public QObject {
 public:
  Body() {
    connect(&server_, &QTcpServer::newConnection, this, [this] {
      while (QTcpSocket* socket = server_.nextPendingConnection()) take(socket);
    });
  }

  ~Body() override {
    for (const auto& [peer, socket] : sockets_) end(socket);
  }

  void take(QTcpSocket* socket) {
    const Peer peer = ++last_;
    sockets_[peer] = socket;
    watchPeer(*socket);
    socket->setReadBufferSize(kPiece);
    connect(socket, &QTcpSocket::readyRead, this, [this, peer] { read(peer); });
    connect(socket, &QTcpSocket::bytesWritten, this, [this, peer] {
      if (events) events->took(peer);
    });
    connect(socket, &QTcpSocket::disconnected, this, [this, peer] { gone(peer); });
    bool isV4 = false;
    const QHostAddress v4(socket->peerAddress().toIPv4Address(&isV4));
    const QString address = (isV4 ? v4 : socket->peerAddress()).toString();
    if (!events || !events->joined(peer, address)) return drop(peer);
    if (socket->bytesAvailable() > 0) read(peer);
  }

  void read(Peer peer) {
    QTcpSocket* socket = find(peer);
    if (!socket || held_.contains(peer) || socket->bytesAvailable() <= 0) return;
    const QByteArray bytes = socket->read(kPiece);
    if (!bytes.isEmpty() && events) events->arrived(peer, bytes);
    if (find(peer) && socket->bytesAvailable() > 0) readLater(peer);
  }

  void hold(Peer peer, bool held) {
    if (held && find(peer))
      held_.insert(peer);
    else if (held_.remove(peer))
      readLater(peer);
  }

  void gone(Peer peer) {
    for (QTcpSocket* socket = find(peer); socket && socket->bytesAvailable() > 0;
         socket = find(peer)) {  // what came before the end
      const QByteArray bytes = socket->read(kPiece);
      if (events) events->arrived(peer, bytes);
    }
    if (!find(peer)) return;
    drop(peer);
    if (events) events->left(peer);
  }

  void drop(Peer peer) {
    const auto found = sockets_.find(peer);
    if (found == sockets_.end()) return;
    QTcpSocket* socket = found->second;
    sockets_.erase(found);
    held_.remove(peer);
    end(socket);
  }

  QTcpSocket* find(Peer peer) const {
    const auto found = sockets_.find(peer);
    return found == sockets_.end() ? nullptr : found->second;
  }

  QTcpServer server_;
  Events* events = nullptr;

 private:
  void readLater(Peer peer) {
    QMetaObject::invokeMethod(
        this, [this, peer] { read(peer); }, Qt::QueuedConnection);
  }

  void end(QTcpSocket* socket) {
    socket->disconnect(this);
    socket->abort();
    socket->deleteLater();
  }

  std::map<Peer, QTcpSocket*> sockets_;  // owned by server_, which outlives no socket
  QSet<Peer> held_;
  Peer last_ = 0;
};

TcpServerQt::TcpServerQt() : body_(std::make_unique<Body>()) {}
TcpServerQt::~TcpServerQt() = default;

void TcpServerQt::setEvents(Events* events) {
  body_->events = events;
}

bool TcpServerQt::listen(const QString& address, quint16 port, QString* error) {
  const QHostAddress host(address);
  if (host.isNull()) {
    *error = u"%1 is no numeric address"_s.arg(address);
    return false;
  }
  if (body_->server_.listen(host, port)) return true;
  *error =
      u"cannot listen at %1 port %2: %3"_s.arg(address).arg(port).arg(body_->server_.errorString());
  return false;
}

quint16 TcpServerQt::port() const {
  return body_->server_.serverPort();
}

void TcpServerQt::send(Peer peer, const QByteArray& bytes) {
  QTcpSocket* socket = body_->find(peer);
  if (!socket || socket->state() != QAbstractSocket::ConnectedState) return;
  socket->write(bytes);
  socket->flush();  // an answer does not wait for the event loop
}

qint64 TcpServerQt::unsent(Peer peer) const {
  const QTcpSocket* socket = body_->find(peer);
  if (!socket) return 0;
  int inKernel = 0;
  ioctl(static_cast<int>(socket->socketDescriptor()), SIOCOUTQ, &inKernel);
  return socket->bytesToWrite() + inKernel;
}

void TcpServerQt::drop(Peer peer) {
  body_->drop(peer);
}

void TcpServerQt::hold(Peer peer, bool held) {
  body_->hold(peer, held);
}

}  // namespace korvane
