#include "platform/net/network_linux.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/ip_icmp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QNetworkInterface>
#include <QSocketNotifier>
#include <QTimer>

#include <cerrno>

namespace korvane {
namespace {

constexpr char kPayload = 'k';

Network::EchoStatus statusOf(int error) {
  return error == EACCES || error == EPERM ? Network::Forbidden : Network::Unreachable;
}

}  // namespace

QString Network::words(EchoStatus status) {
  switch (status) {
    case InvalidAddress:
      return u"not an IP address"_s;
    case Reachable:
      return u"answers"_s;
    case Unreachable:
      return u"no way there"_s;
    case TimedOut:
      return u"no answer"_s;
    case Forbidden:
      return u"this system forbids pings (net.ipv4.ping_group_range)"_s;
  }
  return {};
}

// One echo, from the request to its answer.
class NetworkLinux::Echo {
 public:
  Echo(const QString& address, int timeoutMs, std::function<void(EchoStatus)> answered)
      : answered_(std::move(answered)) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { end(status_); });
    status_ = send(address);
    timer_.start(status_ == TimedOut ? timeoutMs : 0);
  }
  ~Echo() {
    notifier_.reset();
    if (socket_ >= 0) ::close(socket_);
  }
  Echo(const Echo&) = delete;

 private:
  // TimedOut when an answer may come.
  EchoStatus send(const QString& address) {
    sockaddr_in to{};
    to.sin_family = AF_INET;
    if (inet_pton(AF_INET, address.toLatin1().constData(), &to.sin_addr) != 1)
      return InvalidAddress;
    socket_ = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, IPPROTO_ICMP);
    if (socket_ < 0) return statusOf(errno);
    // Connected, so that the replies of others are not heard and errors are.
    if (::connect(socket_, reinterpret_cast<const sockaddr*>(&to), sizeof to) != 0)
      return statusOf(errno);
    struct {
      icmphdr head;
      char payload;
    } request{};
    request.head.type = ICMP_ECHO;  // the kernel sets identifier and checksum
    request.payload = kPayload;
    if (::send(socket_, &request, sizeof request.head + 1, 0) < 0) return statusOf(errno);
    notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this] { read(); });
    return TimedOut;
  }

  void read() {
    char reply[278];
    const ssize_t got = ::recv(socket_, reply, sizeof reply, 0);
    if (got < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (got < 0) return end(statusOf(errno));
    if (got < ssize_t{sizeof(icmphdr)} + 1 || reply[0] != ICMP_ECHOREPLY) return;
    if (reply[sizeof(icmphdr)] == kPayload) end(Reachable);
  }

  // In a turn of its own, since whoever hears it may ping again, which ends this.
  void end(EchoStatus status) {
    timer_.stop();
    if (notifier_) notifier_->setEnabled(false);
    QTimer::singleShot(0, &context_, [this, status] {
      const auto answered = std::exchange(answered_, nullptr);
      answered(status);
    });
  }

  std::function<void(EchoStatus)> answered_;
  int socket_ = -1;
  EchoStatus status_ = TimedOut;
  QObject context_;
  QTimer timer_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

NetworkLinux::NetworkLinux() = default;
NetworkLinux::~NetworkLinux() = default;

void NetworkLinux::ping(const QString& address, int timeoutMs,
                        std::function<void(EchoStatus)> answered) {
  echo_ = std::make_unique<Echo>(address, timeoutMs, std::move(answered));
}

void NetworkLinux::cancelPing() {
  echo_.reset();
}

QStringList NetworkLinux::localIPAddresses() const {
  QStringList addresses;
  for (const QNetworkInterface& adapter : QNetworkInterface::allInterfaces()) {
    const auto flags = adapter.flags();
    if (!(flags & QNetworkInterface::IsUp) || (flags & QNetworkInterface::IsLoopBack)) continue;
    for (const QNetworkAddressEntry& entry : adapter.addressEntries())
      if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol) {
        addresses << entry.ip().toString();
        break;
      }
  }
  return addresses;
}

}  // namespace korvane
