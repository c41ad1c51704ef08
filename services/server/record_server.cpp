#include "services/server/record_server.h"

namespace korvane {
namespace {

constexpr int kLookMs = 25, kIdleLookMs = 1000;
constexpr int kNextTurnMs = 1;

}  // namespace

RecordServer::RecordServer(Uses uses) : uses_(uses) {
  uses_.server.setEvents(this);
  uses_.ticker.tick = [this] { look(); };
  uses_.turns.tick = [this] { turn(); };
}

RecordServer::~RecordServer() {
  uses_.server.setEvents(nullptr);
  for (Ticker* ticker : {&uses_.ticker, &uses_.turns}) {
    ticker->stop();
    ticker->tick = nullptr;
  }
}

RecordServer::Connection* RecordServer::find(Peer peer) {
  const auto found = peers_.find(peer);
  return found == peers_.end() ? nullptr : &found->second;
}

QString RecordServer::address(Peer peer) const {
  const auto found = peers_.find(peer);
  return found == peers_.end() ? QString() : found->second.address;
}

QList<TcpServer::Peer> RecordServer::peers(unsigned groups) const {
  QList<Peer> all;
  for (const auto& [peer, connection] : peers_)
    if (!groups || (connection.groups & groups)) all << peer;
  return all;
}

qint64 RecordServer::queuedBytes() const {
  qint64 bytes = 0;
  for (const auto& [peer, connection] : peers_) bytes += connection.outbox.size();
  return bytes;
}

bool RecordServer::joined(Peer peer, const QString& address) {
  const auto refuse = [&](const QString& why) {
    uses_.log.warn(u"refused %1: %2"_s.arg(address, why));
    return false;
  };
  if (!uses_.allow.admits(address)) return refuse(u"not in the list of --allow"_s);
  if (count() >= uses_.limits.connections)
    return refuse(u"all %1 connections are taken"_s.arg(count()));
  const auto ofAddress = std::count_if(peers_.begin(), peers_.end(), [&](const auto& entry) {
    return entry.second.address == address;
  });
  if (ofAddress >= uses_.limits.connectionsPerAddress)
    return refuse(u"it has %1 connections already, see --connections-per-address"_s.arg(ofAddress));
  Connection connection{address, RecordSplitter(uses_.limits.recordBytes), {}};
  connection.heardMs = nowMs();
  peers_.emplace(peer, std::move(connection));
  uses_.log.say(u"connection %1 from %2, %3 of %4"_s.arg(peer).arg(address).arg(count()).arg(
      uses_.limits.connections));
  lookEvery(kIdleLookMs);
  return true;
}

void RecordServer::arrived(Peer peer, const QByteArray& bytes) {
  Connection* connection = find(peer);
  if (!connection) return;
  RecordSplitter& inbox = connection->inbox;
  const bool went = inbox.unfinished();
  const qsizetype before = inbox.whole();
  if (!inbox.put(bytes))
    return drop(peer, u"a record of more than %1 bytes"_s.arg(uses_.limits.recordBytes));
  if (inbox.unfinished()) {
    if (!went || inbox.whole() > before) connection->halfSinceMs = nowMs();
    lookEvery(kLookMs);
  }
  if (inbox.whole() == 0) return;
  if (before == 0) line_.push_back(peer);
  if (!uses_.turns.running()) turn();  // nobody waits: at once
  if (connection = find(peer); connection && connection->inbox.whole() > 0)
    uses_.server.hold(peer, true);
}

// One record of each peer that waits, and again, until the turn is over.
void RecordServer::turn() {
  const qint64 until = nowMs() + kTurnMs;
  for (int i = 0; i < kTurnRecords && !line_.empty() && nowMs() < until; ++i) {
    const Peer peer = line_.front();
    line_.pop_front();
    handleNext(peer);
  }
  if (line_.empty())
    uses_.turns.stop();
  else if (!uses_.turns.running())
    uses_.turns.start(kNextTurnMs);
}

void RecordServer::handleNext(Peer peer) {
  Connection* connection = find(peer);
  const std::optional<QByteArray> record = connection ? connection->inbox.next() : std::nullopt;
  if (!record) return;
  const qint64 now = nowMs();
  if (now - connection->secondMs >= 1000) {
    connection->secondMs = now;
    connection->inSecond = 0;
  }
  if (++connection->inSecond > uses_.limits.recordsASecond)
    return drop(peer, u"more than %1 records in a second"_s.arg(uses_.limits.recordsASecond));
  connection->heardMs = now;
  if (service_) service_->record(peer, *record);
  connection = find(peer);
  if (!connection) return;
  if (connection->inbox.whole() > 0) return line_.push_back(peer);
  if (connection->ended) return forget(peer);
  connection->halfSinceMs = nowMs();
  uses_.server.hold(peer, false);
}

void RecordServer::took(Peer peer) {
  push(peer);
}

void RecordServer::left(Peer peer) {
  Connection* connection = find(peer);
  if (!connection) return;
  connection->ended = true;
  if (connection->inbox.whole() == 0) forget(peer);
}

void RecordServer::forget(Peer peer) {
  peers_.erase(peer);
  uses_.log.say(u"connection %1 ended, %2 left"_s.arg(peer).arg(count()));
  if (service_) service_->left(peer);
}

void RecordServer::drop(Peer peer, const QString& why) {
  const Connection* connection = find(peer);
  if (!connection) return;
  uses_.log.warn(u"connection %1 from %2 dropped: %3"_s.arg(peer).arg(connection->address, why));
  peers_.erase(peer);
  uses_.server.drop(peer);
  if (service_) service_->left(peer);
}

void RecordServer::keep(Peer peer, unsigned groups) {
  Connection* connection = find(peer);
  if (!connection) return;
  connection->kept = true;
  connection->groups |= groups;
}

// A peer that does not read is dropped by the next look and not here, where its service may be in
// the middle of telling all peers something.
void RecordServer::send(Peer peer, const QByteArray& record) {
  Connection* connection = find(peer);
  if (!connection || connection->overfull) return;
  connection->outbox.put(record);
  push(peer);
  connection = find(peer);
  if (!connection || connection->outbox.size() <= uses_.limits.unreadBytes) return;
  connection->overfull = true;
  connection->outbox.clear();
}

void RecordServer::sendAll(const QByteArray& record, unsigned groups) {
  for (const Peer peer : peers(groups)) send(peer, record);
}

void RecordServer::sendAllPicture(const QByteArray& announcement, const QByteArray& picture,
                                  unsigned groups) {
  for (const Peer peer : peers(groups)) {
    if (Connection* connection = find(peer); connection && !connection->overfull)
      connection->outbox.putPicture(announcement, picture);
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
    Connection* connection = find(peer);
    if (!connection) return;
    if (connection->outbox.empty() && connection->unsent == 0) return;
    if (connection->unsent == 0) connection->movedMs = nowMs();
    const QByteArray bytes = connection->outbox.next(nowMs(), uses_.server.unsent(peer));
    if (bytes.isEmpty()) break;
    connection->unsent += bytes.size();
    uses_.server.send(peer, bytes);
  }
  lookEvery(kLookMs);
}

QString RecordServer::troubleOf(Peer peer, Connection& connection) {
  const ServerLimits& limits = uses_.limits;
  const qint64 now = nowMs();
  const bool behind = connection.inbox.whole() > 0;  // it is this service that lets it wait
  if (connection.overfull) return u"it does not read what it is sent"_s;
  if (connection.inbox.unfinished() && !behind &&
      now - connection.halfSinceMs >= limits.halfRecordMs)
    return u"half a record and nothing more"_s;
  if (!connection.kept && !behind && now - connection.heardMs >= limits.idleMs)
    return u"it has said nothing for %1 s"_s.arg(limits.idleMs / 1000);
  const qint64 unsent = uses_.server.unsent(peer);
  if (unsent == 0 || unsent < connection.unsent) connection.movedMs = now;
  connection.unsent = unsent;
  if (unsent > 0 && now - connection.movedMs >= limits.unreadMs)
    return u"it has read nothing for %1 s"_s.arg(limits.unreadMs / 1000);
  return {};
}

// At what waits for the peers or for something of theirs.
void RecordServer::look() {
  for (const Peer peer : peers()) {
    push(peer);
    Connection* connection = find(peer);
    if (!connection) continue;
    if (const QString trouble = troubleOf(peer, *connection); !trouble.isEmpty())
      drop(peer, trouble);
  }
  bool waits = false, strangers = false;
  for (const auto& [peer, connection] : peers_) {
    waits |= connection.inbox.unfinished() || !connection.outbox.empty() || connection.unsent > 0 ||
             connection.overfull;
    strangers |= !connection.kept;
  }
  const int next = waits ? kLookMs : strangers ? kIdleLookMs : 0;
  if (next == std::exchange(lookMs_, next)) return;
  next > 0 ? uses_.ticker.start(next) : uses_.ticker.stop();
}

// At least so often, until a look finds that there is less to do.
void RecordServer::lookEvery(int milliseconds) {
  if (lookMs_ > 0 && lookMs_ <= milliseconds) return;
  lookMs_ = milliseconds;
  uses_.ticker.start(milliseconds);
}

}  // namespace korvane
