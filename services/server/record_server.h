// The door of a service: it admits peers, splits what they send into records and sends them
// answers, and it drops those that flood, stop in the middle of a record or never read.
#pragma once

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
  virtual void record(Peer peer, QByteArrayView bytes) = 0;  // without its 0x01
  virtual void left(Peer peer) = 0;                          // ended or dropped
};

struct ServerLimits {
  int connections = 128;
  qsizetype recordBytes = 8192;  // of a record that is taken
  int recordsASecond = 500;
  int halfRecordMs = 10'000;       // for the rest of a record to come
  int unreadMs = 15'000;           // for a peer to take something of what is sent
  qint64 unreadBytes = 256 << 10;  // of records that wait for a peer
};

class RecordServer : private TcpServer::Events {
 public:
  using Peer = TcpServer::Peer;
  struct Uses {
    TcpServer& server;
    Ticker& ticker;
    const Clock& clock;
    ServiceLog& log;
    const AllowList& allow;
    ServerLimits limits;
  };
  explicit RecordServer(Uses uses);
  ~RecordServer() override;

  void setService(RecordService* service) { service_ = service; }  // not owned

  void send(Peer peer, const QByteArray& record);
  void sendAll(const QByteArray& record);
  void sendAllPicture(const QByteArray& announcement, const QByteArray& picture);
  void dropPictures();  // that wait and have not been announced

  int count() const { return static_cast<int>(peers_.size()); }
  bool has(Peer peer) const { return peers_.contains(peer); }
  QList<Peer> peers() const;
  QString address(Peer peer) const;  // empty for one that has gone
  qint64 nowMs() const { return uses_.clock.monotonicMs(); }

 private:
  struct Connection {
    QString address;
    RecordSplitter splitter;
    Outbox outbox;
    qint64 halfSinceMs = 0, movedMs = 0, unsent = 0;  // unsent: when last looked at
    qint64 secondMs = 0;
    int inSecond = 0;
  };

  bool joined(Peer peer, const QString& address) override;
  void arrived(Peer peer, const QByteArray& bytes) override;
  void took(Peer peer) override;
  void left(Peer peer) override;

  bool takeRecord(Peer peer, QByteArrayView bytes);
  void push(Peer peer);
  void look();  // at what waits, every kLookMs while anything does
  QString troubleOf(Peer peer, Connection& connection);
  void drop(Peer peer, const QString& why);

  Uses uses_;
  RecordService* service_ = nullptr;
  std::map<Peer, Connection> peers_;
};

}  // namespace korvane
