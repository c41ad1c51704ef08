// Which addresses may connect: a list of addresses and networks, as "10.0.0.5", "192.168.1.0/24",
// "fd00::/8". This machine itself is always admitted.
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

class AllowList {
 public:
  // Adds entries with commas or blanks between. False with `error` when one is no address.
  bool add(const QString& entries, QString* error);
  bool admits(const QString& address) const;  // a numeric address
  bool empty() const { return networks_.isEmpty(); }

 private:
  using Address = std::array<quint8, 16>;  // IPv4 as ::ffff:a.b.c.d
  struct Network {
    Address address;
    int bits;
  };
  static std::optional<Address> parse(const QString& text, bool* isV4 = nullptr);
  static bool within(const Address& address, const Network& network);

  QList<Network> networks_;
};

}  // namespace korvane
