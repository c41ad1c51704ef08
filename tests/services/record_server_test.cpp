// The door of the services: who comes in, how records are found, and those who misbehave.
#include "tests/services/service_world.h"

namespace korvane {
namespace {

TEST(AllowListTest, AddressesAndNetworks) {
  AllowList list;
  QString error;
  ASSERT_TRUE(list.add(u"192.168.1.0/24, 10.0.0.5 fd00::/8"_s, &error));
  for (const char* inside : {"127.0.0.1", "127.8.8.8", "::1", "::ffff:127.0.0.1", "192.168.1.255",
                             "::ffff:192.168.1.7", "10.0.0.5", "fd12::9", "fd12::9%eth0"})
    EXPECT_TRUE(list.admits(QString::fromLatin1(inside))) << inside;
  for (const char* outside : {"192.168.2.1", "10.0.0.6", "fe80::1", "", "localhost", "1.2.3"})
    EXPECT_FALSE(list.admits(QString::fromLatin1(outside))) << outside;
  for (const char* bad :
       {"10.0.0", "10.0.0.0/33", "fd00::/129", "10.0.0.0/x", "10.0.0.0/-1", "host"})
    EXPECT_FALSE(AllowList().add(QString::fromLatin1(bad), &error)) << bad;
}

TEST(RecordSplitterTest, RecordsHoweverTheyAreCut) {
  const QByteArray stream = bytes("MUSIC|PLAY|a|b$$MUSIC|STOP$half");
  for (qsizetype piece = 1; piece <= stream.size(); ++piece) {
    RecordSplitter splitter(20);
    QByteArrayList found;
    for (qsizetype from = 0; from < stream.size(); from += piece) {
      EXPECT_TRUE(splitter.put(
          QByteArrayView(stream).sliced(from).first(std::min(piece, stream.size() - from))));
      while (from % 3 > 0 && splitter.whole() > 0) found << *splitter.next();
    }
    while (const auto record = splitter.next()) found << *record;
    EXPECT_EQ(found, QByteArrayList({bytes("MUSIC|PLAY|a|b"), {}, bytes("MUSIC|STOP")})) << piece;
    EXPECT_TRUE(splitter.unfinished());
  }
}

TEST(ServiceLogTest, AFloodDoesNotHideWhatMatters) {
  FakeClock clock;
  HeardLog log(clock, "test");
  for (int i = 0; i < 1000; ++i) log.warn(u"refused"_s);
  log.warn(u"dropped"_s);
  EXPECT_EQ(log.text, "test: refused\ntest: the last line 999 times more\ntest: dropped\n");
  for (int i = 0; i < 1000; ++i) log.warn(QString::number(i));
  EXPECT_LE(log.text.count('\n'), 110);
  clock.advance(10'000);
  log.warn(u"later"_s);
  EXPECT_TRUE(log.text.endsWith("lines left out\ntest: later\n"));
}

struct RecordServerTest : ServiceWorld, RecordService {
  using Peer = TcpServer::Peer;

  RecordServerTest() { limits.connections = 3; }
  void open() {
    server.emplace(RecordServer::Uses{tcp, doorTicker, turns, system.clock, log, allow, limits});
    server->setService(this);
  }
  void record(Peer peer, QByteArrayView bytes) override {
    got[peer] << bytes.toByteArray();
    order << peer;
    system.clock.advance(recordMs);
    if (!answer.isEmpty()) server->send(peer, answer);
  }
  void left(Peer peer) override { gone << peer; }

  std::optional<RecordServer> server;
  std::map<Peer, QByteArrayList> got;
  QList<Peer> gone, order;  // order: whose record was handled
  QByteArray answer;        // to each record
  int recordMs = 0;         // that one takes
};

TEST_F(RecordServerTest, OnlyTheAllowedAndNotTooMany) {
  open();
  EXPECT_EQ(tcp.join(u"10.0.0.9"_s), 0U);
  const Peer first = tcp.join();
  tcp.join(), tcp.join();
  EXPECT_EQ(tcp.join(), 0U);
  tcp.leave(first);
  EXPECT_NE(tcp.join(), 0U);
  EXPECT_TRUE(log.text.contains("refused 10.0.0.9: not in the list"));
  EXPECT_TRUE(log.text.contains("all 3 connections are taken"));
}

TEST_F(RecordServerTest, OneMachineDoesNotShutTheOthersOut) {
  limits.connections = 20;
  QString error;
  allow.add(u"10.0.0.0/8"_s, &error);
  open();
  QList<Peer> taken;
  while (const Peer peer = tcp.join(u"10.0.0.9"_s)) taken << peer;
  EXPECT_EQ(taken.size(), limits.connectionsPerAddress);
  EXPECT_NE(tcp.join(u"10.0.0.8"_s), 0U);
  tcp.leave(taken.first());
  EXPECT_NE(tcp.join(u"10.0.0.9"_s), 0U);
}

TEST_F(RecordServerTest, StrangersAreDroppedAndWhoTakesPartIsNot) {
  open();
  const Peer mute = tcp.join(), asks = tcp.join(), kept = tcp.join();
  server->keep(kept);
  pass(limits.idleMs - 1000);
  say(asks, "a$");
  pass(1000);
  EXPECT_EQ(gone, QList<Peer>{mute});
  pass(limits.idleMs);
  EXPECT_EQ(gone, QList<Peer>({mute, asks}));
  EXPECT_FALSE(doorTicker.running()) << "nobody is to be looked at";
}

// Eight that ask for much and read nothing: what waits for them counts while it is queued.
TEST_F(RecordServerTest, AnswersThatNobodyReadsDoNotPileUp) {
  limits.connections = 9;
  answer = QByteArray(30'000, 'n') + '\1';
  open();
  QList<Peer> deaf;
  for (int i = 0; i < 8; ++i) deaf << tcp.join();
  tcp.deaf = deaf;
  for (const Peer peer : deaf) say(peer, QByteArray("a$").repeated(490));
  qint64 most = server->queuedBytes();
  for (; turns.running(); turns.fire()) most = std::max(most, server->queuedBytes());
  EXPECT_LE(most, 8 * limits.unreadBytes);
  pass(100);
  EXPECT_EQ(server->count(), 0);
  EXPECT_TRUE(log.text.contains("does not read what it is sent"));
}

TEST_F(RecordServerTest, EachHasItsTurn) {
  limits.connections = 9;
  open();
  QList<Peer> busy;
  for (int i = 0; i < 8; ++i) busy << tcp.join();
  for (const Peer peer : busy) say(peer, QByteArray("a$").repeated(450));
  EXPECT_LE(order.size(), RecordServer::kTurnRecords);
  EXPECT_EQ(tcp.held, busy) << "none is read before what it sent is handled";

  const Peer other = tcp.join();
  say(other, "b$");
  order.clear();
  turns.fire();
  EXPECT_LE(order.indexOf(other), busy.size());
  EXPECT_NE(order.indexOf(other), -1);
  for (const Peer peer : busy) EXPECT_LE(order.count(peer), 2);

  recordMs = 2 * RecordServer::kTurnMs;
  order.clear();
  turns.fire();
  EXPECT_EQ(order.size(), 1) << "one that takes long ends a turn";

  recordMs = 0;
  tcp.leave(busy[0]);
  EXPECT_TRUE(gone.isEmpty()) << "what it sent counts";
  takeTurns();
  EXPECT_EQ(gone, QList<Peer>{busy[0]});
  EXPECT_TRUE(tcp.held.isEmpty());
  for (const Peer peer : busy) EXPECT_EQ(got[peer].size(), 450);
}

TEST_F(RecordServerTest, WhoMisbehavesIsDroppedAndTheOthersStay) {
  limits.recordsASecond = 10;
  limits.recordBytes = 600;
  open();
  const Peer good = tcp.join(), bad = tcp.join();
  const auto fill = [&](auto misbehave) {
    const Peer peer = tcp.join();
    gone.clear();
    misbehave(peer);
    EXPECT_EQ(gone, QList<Peer>{peer}) << log.text.constData();
    EXPECT_TRUE(tcp.dropped.contains(peer));
  };
  fill([&](Peer peer) {  // floods
    say(peer, QByteArray("a$").repeated(1000));
    EXPECT_EQ(got[peer].size(), 10);
  });
  fill([&](Peer peer) { tcp.arrive(peer, QByteArray(601, 'x')); });  // a record without an end
  fill([&](Peer peer) {  // half a record, kept up by a byte now and then
    for (int i = 0; i < 4; ++i) say(peer, "x"), pass(3000);
  });
  fill([&](Peer peer) {  // reads nothing, a little at a time
    tcp.deaf << peer;
    server->send(peer, "news\1");
    pass(limits.unreadMs + 50);
  });
  say(good, "still here$"), say(bad, "a$");
  EXPECT_EQ(got[good], QByteArrayList{"still here"});
  EXPECT_FALSE(gone.contains(good));
  tcp.leave(bad);
  EXPECT_FALSE(server->has(bad));
}

TEST_F(RecordServerTest, SlowReadersAreNoMisbehaviour) {
  open();
  const Peer slow = tcp.join();
  server->keep(slow);
  tcp.deaf << slow;
  for (int i = 0; i < 10; ++i) {
    server->send(slow, QByteArray(1000, 'n'));
    pass(limits.unreadMs / 2);
    tcp.waiting[slow] -= 500;
  }
  EXPECT_TRUE(server->has(slow));
  tcp.waiting[slow] = 0;
  pass(100);
  EXPECT_FALSE(doorTicker.running()) << "nothing waits: nothing is looked at";
  system.clock.advance(1'000'000);
  server->send(slow, "again\1");
  pass(100);
  EXPECT_TRUE(server->has(slow));
}

TEST_F(RecordServerTest, APictureIsADeliveryOfItsOwn) {
  open();
  const Peer one = tcp.join(), two = tcp.join();
  tcp.deaf << two;
  server->sendAll("before\1");
  server->sendAllPicture("RECEIVEJPG\1", "picture");
  server->sendAll("behind\1");
  EXPECT_EQ(tcp.sent[one], QByteArrayList({"before\1", "RECEIVEJPG\1"}));
  pass(Outbox::kGapMs + 50);
  EXPECT_EQ(tcp.sent[one].last(), "picture");
  pass(Outbox::kGapMs + 50);
  EXPECT_EQ(tcp.sent[one].last(), "behind\1");
  EXPECT_EQ(tcp.sent[two].last(), "RECEIVEJPG\1") << "its machine has not taken that yet";
  tcp.waiting[two] = 0;
  pass(Outbox::kGapMs + 50);
  EXPECT_EQ(tcp.sent[two].last(), "picture");
}

TEST_F(RecordServerTest, APictureThatIsOutOfDateIsNotAnnounced) {
  open();
  const Peer peer = tcp.join();
  server->sendAllPicture("first\1", "1");
  server->sendAllPicture("second\1", "22");
  server->sendAllPicture("third\1", "333");
  pass(6 * Outbox::kGapMs);
  EXPECT_EQ(tcp.sent[peer], QByteArrayList({"first\1", "1", "third\1", "333"}));
}

}  // namespace
}  // namespace korvane
