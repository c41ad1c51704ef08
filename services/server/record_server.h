// The door of a service: it admits peers, splits what they send into records, hands these to the
// service by turns, so that no peer keeps another waiting, and sends answers. It drops those that
// flood, stop in the middle of a record, never say what they are here for or never read.
#pragma once

#include <deque>
#include <map>

#include "platform/tcp_server.h"
#include "platform/ticker.h"
#include "services/server/allow_list.h"
#include "services/server/outbox.h"
#include "services/server/record_splitter.h"
#include "services/server/service_log.h"

namespace korvane {

// What a service makes of its peers. Any call of the server is allowed inside.
class RecordService {
 public:
  using Peer = TcpServer::Peer;
  virtual ~RecordService() = default;
  // Without its 0x01; the bytes last for the call. The peer's connection may have ended meanwhile.
  virtual void record(Peer peer, QByteArrayView bytes) = 0;
  // Ended or dropped: nothing of it comes any more, and its number is never given again.
  virtual void left(Peer peer) = 0;
};

// What a peer may do before it is refused or dropped.
struct ServerLimits {
  int connections = 128;
  int connectionsPerAddress = 16;
  qsizetype recordBytes = 8192;  // of a record that is taken
  int recordsASecond = 500;
  int halfRecordMs = 10'000;       // for the rest of a record to come
  int idleMs = 180'000;            // without a record, for a peer that is not kept
  int unreadMs = 15'000;           // for a peer to take something of what is sent
  qint64 unreadBytes = 256 << 10;  // of records that wait for a peer
};

class RecordServer : private TcpServer::Events {
 public:
  using Peer = TcpServer::Peer;
  // A turn ends with whichever comes first. Each peer that waits has one record handled before any
  // has its next.
  static constexpr int kTurnRecords = 16;
  static constexpr qint64 kTurnMs = 5;

  struct Uses {
    TcpServer& server;
    Ticker& ticker;  // of looks at what waits for the peers
    Ticker& turns;   // of records that wait for their turn
    const Clock& clock;
    ServiceLog& log;
    const AllowList& allow;
    ServerLimits limits;
  };
  explicit RecordServer(Uses uses);
  ~RecordServer() override;  // the connections stay with the TcpServer

  void setService(RecordService* service) { service_ = service; }  // not owned

  // Each queues what waits for the peer's machine to take it, and does nothing for one that has
  // gone. A peer for which more waits than limits.unreadBytes loses it and is dropped soon.
  void send(Peer peer, const QByteArray& record);
  void sendAll(const QByteArray& record, unsigned groups = 0);
  void sendAllPicture(const QByteArray& announcement, const QByteArray& picture,
                      unsigned groups = 0);
  void dropPictures();  // that wait and have not been announced

  // That peer takes part, also in these groups, which are bits: from now on it may be silent for as
  // long as its connection stands.
  void keep(Peer peer, unsigned groups = 0);

  // A connection that has ended counts until what it sent has been handled.
  int count() const { return static_cast<int>(peers_.size()); }
  bool has(Peer peer) const { return peers_.contains(peer); }
  QList<Peer> peers(unsigned groups = 0) const;  // in one of these; without groups all
  QString address(Peer peer) const;              // empty for one that has gone
  qint64 queuedBytes() const;                    // of records that wait here for all peers
  qint64 nowMs() const { return uses_.clock.monotonicMs(); }

 private:
  struct Connection {
    QString address;
    RecordSplitter inbox;
    Outbox outbox;
    qint64 heardMs = 0, halfSinceMs = 0, movedMs = 0, unsent = 0;  // unsent: when last looked at
    qint64 secondMs = 0;
    int inSecond = 0;
    bool kept = false;
    unsigned groups = 0;
    bool ended = false;     // it has gone, and records of it wait for their turn
    bool overfull = false;  // it did not read; what waited is thrown away
  };

  bool joined(Peer peer, const QString& address) override;
  void arrived(Peer peer, const QByteArray& bytes) override;
  void took(Peer peer) override;
  void left(Peer peer) override;

  Connection* find(Peer peer);  // null for one that has gone
  void turn();
  void handleNext(Peer peer);
  void push(Peer peer);
  void look();
  void lookEvery(int milliseconds);
  QString troubleOf(Peer peer, Connection& connection);
  void drop(Peer peer, const QString& why);
  void forget(Peer peer);

  Uses uses_;
  RecordService* service_ = nullptr;
  std::map<Peer, Connection> peers_;
  std::deque<Peer> line_;  // those with whole records that wait, each once
  int lookMs_ = 0;         // between looks; 0 when nothing is to be looked at
};

}  // namespace korvane
