#include "services/server/ip_address.h"

#include <arpa/inet.h>
#include <unistd.h>

namespace korvane {
namespace {

constexpr size_t kV4Begin = 12;  // of the bytes of an IPv4 address
constexpr IpAddress kMapped{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};

}  // namespace

std::optional<IpAddress> ipAddressOf(const QString& text) {
  const QByteArray plain = text.section(u'%', 0, 0).toLatin1();
  IpAddress address{};
  if (inet_pton(AF_INET6, plain.constData(), address.data()) == 1) return address;
  address = kMapped;
  if (inet_pton(AF_INET, plain.constData(), address.data() + kV4Begin) == 1) return address;
  return std::nullopt;
}

bool isV4(const IpAddress& address) {
  return std::equal(kMapped.begin(), kMapped.begin() + kV4Begin, address.begin());
}

QString textOf(const IpAddress& address) {
  char text[INET6_ADDRSTRLEN] = "";
  if (isV4(address))
    inet_ntop(AF_INET, address.data() + kV4Begin, text, sizeof text);
  else
    inet_ntop(AF_INET6, address.data(), text, sizeof text);
  return QString::fromLatin1(text);
}

bool isOfThisMachine(const IpAddress& address) {
  const bool v4 = isV4(address);
  sockaddr_in of4{};
  of4.sin_family = AF_INET;
  std::copy(address.begin() + kV4Begin, address.end(), reinterpret_cast<quint8*>(&of4.sin_addr));
  sockaddr_in6 of6{};
  of6.sin6_family = AF_INET6;
  std::copy(address.begin(), address.end(), of6.sin6_addr.s6_addr);
  const int socket = ::socket(v4 ? AF_INET : AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (socket < 0) return false;
  const bool bound =
      ::bind(socket,
             v4 ? reinterpret_cast<const sockaddr*>(&of4) : reinterpret_cast<const sockaddr*>(&of6),
             v4 ? sizeof of4 : sizeof of6) == 0;
  ::close(socket);
  return bound;
}

}  // namespace korvane
