#include "services/server/allow_list.h"

#include <QRegularExpression>

namespace korvane {
namespace {

constexpr int kAllBits = 128, kV4Bits = 96;  // the bits before an IPv4 address

}  // namespace

bool AllowList::add(const QString& entries, QString* error) {
  static const QRegularExpression between(u"[,\\s]+"_s);
  for (const QString& entry : entries.split(between, Qt::SkipEmptyParts)) {
    const QString text = entry.section(u'/', 0, 0);
    const std::optional<IpAddress> address = ipAddressOf(text);
    const bool fourNumbers = address && isV4(*address) && !text.contains(u':');
    const int most = fourNumbers ? kAllBits - kV4Bits : kAllBits;
    bool isNumber = true;
    const int bits = entry.contains(u'/') ? entry.section(u'/', 1).toInt(&isNumber) : most;
    if (!address || !isNumber || bits < 0 || bits > most) {
      *error = u"%1 is no address or network, such as 10.0.0.5 or 192.168.1.0/24"_s.arg(entry);
      return false;
    }
    networks_ << Network{*address, fourNumbers ? bits + kV4Bits : bits};
  }
  return true;
}

bool AllowList::within(const IpAddress& address, const Network& network) {
  const size_t whole = static_cast<size_t>(network.bits) / 8;
  if (!std::equal(address.begin(), address.begin() + static_cast<long>(whole),
                  network.address.begin()))
    return false;
  const int rest = network.bits % 8;
  return rest == 0 || (address[whole] ^ network.address[whole]) >> (8 - rest) == 0;
}

bool AllowList::holds(const QString& text) const {
  const std::optional<IpAddress> address = ipAddressOf(text);
  return address && std::any_of(networks_.begin(), networks_.end(),
                                [&](const Network& network) { return within(*address, network); });
}

bool AllowList::admits(const QString& text) const {
  static const AllowList self = [] {
    AllowList list;
    QString none;
    list.add(u"127.0.0.0/8 ::1"_s, &none);
    return list;
  }();
  return self.holds(text) || holds(text);
}

}  // namespace korvane
