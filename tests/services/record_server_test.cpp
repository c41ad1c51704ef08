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
    for (qsizetype from = 0; from < stream.size(); from += piece)
      EXPECT_TRUE(splitter.take(
          QByteArrayView(stream).sliced(from).first(std::min(piece, stream.size() - from)),
          [&](QByteArrayView record) {
            found << record.toByteArray();
            return true;
          }));
    EXPECT_EQ(found, QByteArrayList({bytes("MUSIC|PLAY|a|b"), {}, bytes("MUSIC|STOP")})) << piece;
    EXPECT_TRUE(splitter.unfinished());
  }
}

struct RecordServerTest : ServiceWorld, RecordService {
  using Peer = TcpServer::Peer;

  RecordServerTest() { limits.connections = 3; }
  void open() {
    server.emplace(RecordServer::Uses{tcp, doorTicker, system.clock, log, allow, limits});
    server->setService(this);
  }
  void record(Peer peer, QByteArrayView bytes) override { got[peer] << bytes.toByteArray(); }
  void left(Peer peer) override { gone << peer; }

  std::optional<RecordServer> server;
  std::map<Peer, QByteArrayList> got;
  QList<Peer> gone;
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
  fill([&](Peer peer) {  // reads nothing of very much
    tcp.deaf << peer;
    for (int i = 0; i < 400; ++i) server->send(peer, QByteArray(1000, 'n'));
    EXPECT_LE(tcp.waiting[peer], 100 << 10);
    pass(50);
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
