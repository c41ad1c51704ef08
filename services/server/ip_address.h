// Numeric addresses, IPv4 and IPv6 alike: two texts that mean the same machine are equal here.
#pragma once

#include <array>
#include <optional>

#include "platform/text.h"

namespace korvane {

using IpAddress = std::array<quint8, 16>;  // in network order; IPv4 as ::ffff:a.b.c.d (RFC 4291)

// Nothing for a text that is no numeric address; what stands behind a '%' (an interface) is passed
// over.
std::optional<IpAddress> ipAddressOf(const QString& text);

bool isV4(const IpAddress& address);

// As a console can read it: an IPv4 address in four numbers however it came.
QString textOf(const IpAddress& address);

// Whether this machine has that address now; the loopback addresses are among them. It asks by
// binding a socket to it, which works where a list of the interfaces may not be read.
bool isOfThisMachine(const IpAddress& address);

}  // namespace korvane
