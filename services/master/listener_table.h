// The table of a Master Listener: which Listeners and consoles are there, in the order in which
// they came. An entry lives as long as the connection that registered it.
#pragma once

#include "listener/listener_list.h"
#include "platform/tcp_server.h"

namespace korvane {

class ListenerTable {
 public:
  using Peer = TcpServer::Peer;
  static constexpr qsizetype kMostEntries = 256, kMostOfOne = 8, kLongestText = 64;

  // Adds an entry of that connection. One of the same type and port that it made before is
  // replaced, and so is one of another connection that is equal to it: its owner has come back.
  // False when there is no room.
  bool add(Peer owner, const ListenerEntry& entry);
  QList<ListenerEntry> remove(Peer owner);  // all of that connection; what it had

  QList<ListenerEntry> entries() const;
  bool owns(Peer owner) const;
  QList<Peer> owners() const;  // connections with an entry, each once

 private:
  struct Row {
    Peer owner;
    ListenerEntry entry;
  };
  QList<Row> rows_;
};

// What a registration "ML", "REG", description, address, port, type, type says; nothing unless its
// type is told and it has a port or is a client. `from` is the address of its connection, which
// stands where the record tells no address that others could use.
std::optional<ListenerEntry> registrationOf(const QStringList& fields, const QString& from);

// The entry as one field of a reply: its texts with 0x02 between.
QString entryField(const ListenerEntry& entry);

}  // namespace korvane
