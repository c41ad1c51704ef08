#include "platform/net/winsock_qt.h"

#include <QNetworkInterface>
#include <QTcpSocket>
#include <QTimer>

#include "platform/net/peer_watch.h"

namespace korvane {
namespace {

constexpr qint64 kMostUnread = 1 << 20;
constexpr qint64 kMostUnsent = 16 << 20;  // of a peer that reads nothing; then it counts as gone

QString addressOfMachine() {
  for (const QNetworkInterface& interface : QNetworkInterface::allInterfaces()) {
    const auto flags = interface.flags();
    if (!(flags & QNetworkInterface::IsRunning) || flags & QNetworkInterface::IsLoopBack) continue;
    for (const QNetworkAddressEntry& entry : interface.addressEntries())
      if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol) return entry.ip().toString();
  }
  return u"127.0.0.1"_s;
}

}  // namespace

// The socket of one connection. A report of an earlier connection finds another `connection_`.
class WinsockQt::Body : public QObject {
 public:
  explicit Body(int connectTimeoutMs) {
    timeout_.setSingleShot(true);
    timeout_.setInterval(connectTimeoutMs);
    connect(&timeout_, &QTimer::timeout, this, [this] { fail(u"The connection timed out."_s); });
    socket_.setReadBufferSize(kMostUnread);
    connect(&socket_, &QTcpSocket::connected, this, &Body::connected);
    connect(&socket_, &QTcpSocket::readyRead, this, &Body::announceData);
    connect(&socket_, &QTcpSocket::disconnected, this, &Body::disconnected);
    connect(&socket_, &QTcpSocket::errorOccurred, this, [this](QAbstractSocket::SocketError error) {
      if (error != QAbstractSocket::RemoteHostClosedError) fail(socket_.errorString());
    });
  }

  ~Body() override { socket_.disconnect(this); }

  void open(const QString& host, quint16 port, const QString& from) {
    close();
    if (!from.isEmpty() && !bindTo(from)) return;
    timeout_.start();
    socket_.connectToHost(host, port);
  }

  void close() {
    ++connection_;
    timeout_.stop();
    error_ = closing_ = dataPosted_ = false;
    const QSignalBlocker silent(socket_);
    socket_.abort();
  }

  State state() const {
    if (error_) return Winsock::Error;
    if (closing_) return Winsock::Closing;
    switch (socket_.state()) {
      case QAbstractSocket::HostLookupState:
        return Winsock::ResolvingHost;
      case QAbstractSocket::ConnectingState:
        return Winsock::Connecting;
      case QAbstractSocket::ConnectedState:
        return Winsock::Connected;
      case QAbstractSocket::ClosingState:
        return Winsock::Closing;
      case QAbstractSocket::BoundState:
      case QAbstractSocket::ListeningState:
      case QAbstractSocket::UnconnectedState:
        break;
    }
    return Winsock::Closed;
  }

  void send(const QByteArray& bytes) {
    if (state() != Winsock::Connected) return;
    socket_.write(bytes);
    socket_.flush();  // a command does not wait for the event loop
    if (socket_.bytesToWrite() > kMostUnsent) fail(u"The peer takes no more data."_s);
  }

  QByteArray take(qint64 count) { return socket_.read(std::clamp<qint64>(count, 0, kMostUnread)); }

  QTcpSocket socket_;
  Events* events = nullptr;

 private:
  // Runs `work` in a later turn, unless the connection has been closed or replaced by then.
  template <class Work>
  void later(Work work) {
    QMetaObject::invokeMethod(
        this,
        [this, work, connection = connection_] {
          if (connection == connection_) work();
        },
        Qt::QueuedConnection);
  }

  // False, with the failure on its way, when this machine cannot connect from there.
  bool bindTo(const QString& from) {
    const QHostAddress address(from);
    const bool bound = !address.isNull() && socket_.bind(address);
    if (!bound)
      fail(u"Cannot connect from %1: %2."_s.arg(
          from,
          address.isNull() || socket_.error() == QAbstractSocket::SocketAddressNotAvailableError
              ? u"it is no address of this machine"_s
              : socket_.errorString()));
    return bound;
  }

  void connected() {
    timeout_.stop();
    watchPeer(socket_);
    later([this] {
      if (events) events->Connect();
    });
  }

  void announceData() {
    if (dataPosted_) return;
    dataPosted_ = true;
    later([this] { deliver(); });
  }

  void deliver() {
    dataPosted_ = false;
    const qint64 waiting = socket_.bytesAvailable();
    if (waiting <= 0) return;
    const quint64 connection = connection_;
    if (events) events->DataArrival(waiting);
    if (connection != connection_) return;
    if (const qint64 left = socket_.bytesAvailable(); left > 0 && left != waiting) announceData();
  }

  void disconnected() {
    closing_ = true;
    later([this] {
      deliver();  // what came before the end
      if (closing_ && events) events->Close();
    });
  }

  void fail(const QString& description) {
    QString words = description;  // it may be the socket's own, which goes now
    close();
    error_ = true;
    later([this, words = std::move(words)] {
      if (events) events->Error(words);
    });
  }

  QTimer timeout_;
  quint64 connection_ = 0;
  bool error_ = false, closing_ = false, dataPosted_ = false;
};

WinsockQt::WinsockQt(int connectTimeoutMs) : body_(std::make_unique<Body>(connectTimeoutMs)) {}
WinsockQt::~WinsockQt() = default;

void WinsockQt::setEvents(Events* events) {
  body_->events = events;
}
void WinsockQt::Connect() {
  body_->open(RemoteHost, RemotePort, LocalHost);
}
void WinsockQt::Close() {
  body_->close();
}
Winsock::State WinsockQt::state() const {
  return body_->state();
}
void WinsockQt::SendData(const QByteArray& bytes) {
  body_->send(bytes);
}
QByteArray WinsockQt::GetData(qint64 count) {
  return body_->take(count);
}
QString WinsockQt::LocalIP() const {
  const QHostAddress own = body_->socket_.localAddress();
  return own.isNull() ? addressOfMachine() : own.toString();
}

}  // namespace korvane
