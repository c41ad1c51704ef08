// The table of a Master Listener: which Listeners and consoles are there, in the order in which
// they came. An entry lives as long as the connection that registered it, and nobody else can take
// its place meanwhile: an equal one of another connection waits until that is gone.
#pragma once

#include <functional>

#include "listener/listener_list.h"
#include "platform/tcp_server.h"

namespace korvane {

class ListenerTable {
 public:
  using Peer = TcpServer::Peer;
  static constexpr qsizetype kMostEntries = 256, kMostOfOne = 8, kMostOfAddress = 64;
  static constexpr qsizetype kLongestText = 64;
  struct Row {
    Peer owner = 0;
    ListenerEntry entry;
    bool stands = false;  // in the table; else it waits
  };

  // Takes an entry of that connection in place of the one of the same type and port that it made
  // before; it does not stand before settle(). False when there is no room.
  bool add(Peer owner, const ListenerEntry& entry);

  // What is to stand since the last call: for each entry the first that asked. To be called after
  // add() and remove().
  QList<Row> settle();

  QList<ListenerEntry> remove(Peer owner);  // all of that connection; those that stood

  QList<ListenerEntry> entries() const;           // that stand
  Peer holder(const ListenerEntry& entry) const;  // 0 when it does not stand
  QList<Peer> owners() const;  // connections with an entry that stands or waits, each once

 private:
  QList<Row> rows_;
};

// What a registration "ML", "REG", description, address, port, type, type says; nothing unless its
// type is known and it has a port or is a client. `from` is the address of its connection. It
// stands where the record gives none that others could use, and in place of another one that
// `mayAdvertise` refuses.
std::optional<ListenerEntry> registrationOf(
    const QStringList& fields, const QString& from,
    const std::function<bool(const QString& address)>& mayAdvertise);

// The entry as one field of a reply: its texts with 0x02 between.
QString entryField(const ListenerEntry& entry);

}  // namespace korvane
