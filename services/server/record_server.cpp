#include "services/server/record_server.h"

namespace korvane {
namespace {

constexpr int kLookMs = 25;

}  // namespace

RecordServer::RecordServer(Uses uses) : uses_(uses) {
  uses_.server.setEvents(this);
  uses_.ticker.tick = [this] { look(); };
}

RecordServer::~RecordServer() {
  uses_.server.setEvents(nullptr);
  uses_.ticker.stop();
  uses_.ticker.tick = nullptr;
}

QString RecordServer::address(Peer peer) const {
  const auto found = peers_.find(peer);
  return found == peers_.end() ? QString() : found->second.address;
}

QList<TcpServer::Peer> RecordServer::peers() const {
  QList<Peer> all;
  for (const auto& [peer, connection] : peers_) all << peer;
  return all;
}

bool RecordServer::joined(Peer peer, const QString& address) {
  if (!uses_.allow.admits(address)) {
    uses_.log.warn(u"refused %1: not in the list of --allow"_s.arg(address));
    return false;
  }
  if (count() >= uses_.limits.connections) {
    uses_.log.warn(u"refused %1: all %2 connections are taken"_s.arg(address).arg(count()));
    return false;
  }
  peers_.emplace(peer, Connection{address, RecordSplitter(uses_.limits.recordBytes), {}});
  uses_.log.say(u"connection %1 from %2, %3 of %4"_s.arg(peer).arg(address).arg(count()).arg(
      uses_.limits.connections));
  return true;
}

void RecordServer::arrived(Peer peer, const QByteArray& bytes) {
  const auto found = peers_.find(peer);
  if (found == peers_.end()) return;
  // The record at hand may end its own connection; the splitter must outlive that.
  RecordSplitter splitter = std::move(found->second.splitter);
  bool begins = !splitter.unfinished();
  const bool sound = splitter.take(bytes, [&](QByteArrayView record) {
    begins = true;
    return takeRecord(peer, record);
  });
  const auto still = peers_.find(peer);
  if (still == peers_.end()) return;
  still->second.splitter = std::move(splitter);
  if (!sound) return drop(peer, u"a record of more than %1 bytes"_s.arg(uses_.limits.recordBytes));
  if (!still->second.splitter.unfinished()) return;
  if (begins) still->second.halfSinceMs = nowMs();
  if (!uses_.ticker.running()) uses_.ticker.start(kLookMs);
}

bool RecordServer::takeRecord(Peer peer, QByteArrayView bytes) {
  Connection& connection = peers_.at(peer);
  if (const qint64 now = nowMs(); now - connection.secondMs >= 1000) {
    connection.secondMs = now;
    connection.inSecond = 0;
  }
  if (++connection.inSecond > uses_.limits.recordsASecond) {
    drop(peer, u"more than %1 records in a second"_s.arg(uses_.limits.recordsASecond));
    return false;
  }
  if (service_) service_->record(peer, bytes);
  return has(peer);
}

void RecordServer::took(Peer peer) {
  push(peer);
}

void RecordServer::left(Peer peer) {
  if (peers_.erase(peer) == 0) return;
  uses_.log.say(u"connection %1 ended, %2 left"_s.arg(peer).arg(count()));
  if (service_) service_->left(peer);
}

void RecordServer::drop(Peer peer, const QString& why) {
  const auto found = peers_.find(peer);
  if (found == peers_.end()) return;
  uses_.log.warn(u"connection %1 from %2 dropped: %3"_s.arg(peer).arg(found->second.address, why));
  peers_.erase(found);
  uses_.server.drop(peer);
  if (service_) service_->left(peer);
}

void RecordServer::send(Peer peer, const QByteArray& record) {
  const auto found = peers_.find(peer);
  if (found == peers_.end()) return;
  found->second.outbox.put(record);
  push(peer);
}

void RecordServer::sendAll(const QByteArray& record) {
  for (const Peer peer : peers()) send(peer, record);
}

void RecordServer::sendAllPicture(const QByteArray& announcement, const QByteArray& picture) {
  for (const Peer peer : peers()) {
    if (const auto found = peers_.find(peer); found != peers_.end())
      found->second.outbox.putPicture(announcement, picture);
    push(peer);
  }
}

void RecordServer::dropPictures() {
  for (auto& [peer, connection] : peers_) connection.outbox.dropPictures();
}

// Gives the socket what it may have now; the ticker looks after the rest. A send may find the peer
// gone, which is heard at once.
void RecordServer::push(Peer peer) {
  for (;;) {
    const auto found = peers_.find(peer);
    if (found == peers_.end()) return;
    Connection& connection = found->second;
    if (connection.outbox.empty() && connection.unsent == 0) return;
    if (connection.unsent == 0) connection.movedMs = nowMs();
    const QByteArray bytes = connection.outbox.next(nowMs(), uses_.server.unsent(peer));
    if (bytes.isEmpty()) break;
    connection.unsent += bytes.size();
    uses_.server.send(peer, bytes);
  }
  if (!uses_.ticker.running()) uses_.ticker.start(kLookMs);
}

QString RecordServer::troubleOf(Peer peer, Connection& connection) {
  const qint64 now = nowMs();
  if (connection.splitter.unfinished() && now - connection.halfSinceMs >= uses_.limits.halfRecordMs)
    return u"half a record and nothing more"_s;
  if (connection.outbox.size() > uses_.limits.unreadBytes)
    return u"it does not read what it is sent"_s;
  const qint64 unsent = uses_.server.unsent(peer);
  if (unsent == 0 || unsent < connection.unsent) connection.movedMs = now;
  connection.unsent = unsent;
  if (unsent > 0 && now - connection.movedMs >= uses_.limits.unreadMs)
    return u"it has read nothing for %1 s"_s.arg(uses_.limits.unreadMs / 1000);
  return {};
}

void RecordServer::look() {
  bool waits = false;
  for (const Peer peer : peers()) {
    push(peer);
    const auto found = peers_.find(peer);
    if (found == peers_.end()) continue;
    Connection& connection = found->second;
    if (const QString trouble = troubleOf(peer, connection); !trouble.isEmpty()) {
      drop(peer, trouble);
      continue;
    }
    waits |=
        connection.splitter.unfinished() || !connection.outbox.empty() || connection.unsent > 0;
  }
  if (!waits) uses_.ticker.stop();
}

}  // namespace korvane
