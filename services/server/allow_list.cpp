#include "services/server/allow_list.h"

#include <arpa/inet.h>

#include <QRegularExpression>

namespace korvane {
namespace {

constexpr int kAllBits = 128, kV4Bits = 96;  // the bits before an IPv4 address

}  // namespace

std::optional<AllowList::Address> AllowList::parse(const QString& text, bool* isV4) {
  const QByteArray plain = text.section(u'%', 0, 0).toLatin1();  // without an interface
  Address address{};
  if (isV4) *isV4 = false;
  if (inet_pton(AF_INET6, plain.constData(), address.data()) == 1) return address;
  address = {};
  if (inet_pton(AF_INET, plain.constData(), address.data() + 12) != 1) return std::nullopt;
  address[10] = address[11] = 0xFF;
  if (isV4) *isV4 = true;
  return address;
}

bool AllowList::add(const QString& entries, QString* error) {
  static const QRegularExpression between(u"[,\\s]+"_s);
  for (const QString& entry : entries.split(between, Qt::SkipEmptyParts)) {
    bool isV4 = false, isNumber = true;
    const std::optional<Address> address = parse(entry.section(u'/', 0, 0), &isV4);
    const int most = isV4 ? kAllBits - kV4Bits : kAllBits;
    const int bits = entry.contains(u'/') ? entry.section(u'/', 1).toInt(&isNumber) : most;
    if (!address || !isNumber || bits < 0 || bits > most) {
      *error = u"%1 is no address or network, such as 10.0.0.5 or 192.168.1.0/24"_s.arg(entry);
      return false;
    }
    networks_ << Network{*address, isV4 ? bits + kV4Bits : bits};
  }
  return true;
}

bool AllowList::within(const Address& address, const Network& network) {
  const size_t whole = static_cast<size_t>(network.bits) / 8;
  if (!std::equal(address.begin(), address.begin() + static_cast<long>(whole),
                  network.address.begin()))
    return false;
  const int rest = network.bits % 8;
  return rest == 0 || (address[whole] ^ network.address[whole]) >> (8 - rest) == 0;
}

bool AllowList::admits(const QString& text) const {
  const std::optional<Address> address = parse(text);
  if (!address) return false;
  static const Network self4{*parse(u"127.0.0.0"_s), kV4Bits + 8};
  static const Network self6{*parse(u"::1"_s), kAllBits};
  if (within(*address, self4) || within(*address, self6)) return true;
  return std::any_of(networks_.begin(), networks_.end(),
                     [&](const Network& network) { return within(*address, network); });
}

}  // namespace korvane
