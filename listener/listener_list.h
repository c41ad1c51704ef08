// The list of a Master Listener: each field behind the keyword of IREQUEST, NEW or REQUEST is an
// entry, its sub-fields split by 0x02: description, IP address, port ("N/A" for a client), type.
#pragma once

#include "listener/listener_record.h"

namespace korvane {

struct ListenerEntry {
  QString description, ip, port;
  QString type;  // "MOVIES", "MUSIC", "X10" or "CLIENT"
  // Whether it is the service at that address; ports are the same when their numbers are.
  bool isAt(const QString& otherIp, const QString& otherPort) const;
  bool operator==(const ListenerEntry&) const = default;
};

inline constexpr char kSubFieldEnd = 2;

// The entries of a record, without its 0x01. A missing sub-field is empty, blanks
// stay, control characters become blanks, a text is cut at 200 characters; what follows the 4,096th
// entry is not looked at.
QList<ListenerEntry> listenerEntries(QByteArrayView record, WireText encoding);

// Which entry is to take the place of a Music Listener that cannot be reached, when the whole list
// is known: nothing while `current` stands in it, else the one of its name, else the first of its
// type.
std::optional<ListenerEntry> inPlaceOf(const ListenerEntry& current,
                                       const QList<ListenerEntry>& entries);

}  // namespace korvane
