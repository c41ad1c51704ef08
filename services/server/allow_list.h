// A list of addresses and networks, as "10.0.0.5", "192.168.1.0/24", "fd00::/8".
#pragma once

#include "services/server/ip_address.h"

namespace korvane {

class AllowList {
 public:
  // Adds entries with commas or blanks between. False with `error` in words when one is no address
  // or network; those before it have been added.
  bool add(const QString& entries, QString* error);

  // Whether that address stands in the list or in one of its networks; false for what is none.
  bool holds(const QString& address) const;

  // The same for who may connect: this machine's loopback addresses always may.
  bool admits(const QString& address) const;

  bool empty() const { return networks_.isEmpty(); }

 private:
  struct Network {
    IpAddress address;
    int bits;  // of `address` that count, from its first
  };
  static bool within(const IpAddress& address, const Network& network);

  QList<Network> networks_;
};

}  // namespace korvane
