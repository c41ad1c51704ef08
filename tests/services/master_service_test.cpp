// The Master Listener's side of the wire, byte for byte.
#include "services/master/master_service.h"

#include "tests/services/service_world.h"

namespace korvane {
namespace {

struct MasterServiceTest : ServiceWorld {
  MasterServiceTest() {
    QString error;
    EXPECT_TRUE(allow.add(u"10.0.0.0/8 fd00::/8"_s, &error));
    EXPECT_TRUE(advertise.add(u"172.16.0.0/16"_s, &error));
  }
  QByteArray table() {  // as a console sees it
    const Peer peer = tcp.join();
    say(peer, "ML|GET|ALL$");
    tcp.leave(peer);
    return heard(peer);
  }

  RecordServer server{{tcp, doorTicker, turns, system.clock, log, allow, limits}};
  AllowList advertise;
  const QStringList own{u"127.0.0.1"_s, u"192.168.1.5"_s};
  MasterService master{{server, log, WireText::Windows1252, advertise,
                        [this](const QString& address) { return own.contains(address); }}};
};

TEST_F(MasterServiceTest, ATableThatLivesWithItsConnections) {
  const Peer listener = tcp.join(u"10.0.0.2"_s), console = tcp.join(u"10.0.0.9"_s);
  say(listener, "ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$");
  say(console, "ML|REG|Seat 4|10.0.0.9|N/A|CLIENT|CLIENT$ML|IGET|ALL$");
  EXPECT_EQ(heard(console), "IREQUEST|Salon~10.0.0.2~7411~MUSIC|Seat 4~10.0.0.9~N/A~CLIENT$");
  EXPECT_EQ(heard(listener), "NEW|Seat 4~10.0.0.9~N/A~CLIENT$");

  const Peer movies = tcp.join(u"10.0.0.3"_s);
  say(movies, "ML|REG|Cinema|10.0.0.3|7412|MOVIES|MOVIES$");
  EXPECT_EQ(heard(console), "NEW|Cinema~10.0.0.3~7412~MOVIES$");
  EXPECT_EQ(heard(movies), "");

  tcp.leave(listener);
  say(console, "ML|GET|ALL$");
  EXPECT_EQ(heard(console), "REQUEST|Seat 4~10.0.0.9~N/A~CLIENT|Cinema~10.0.0.3~7412~MOVIES$");
}

TEST_F(MasterServiceTest, NobodyTakesAnothersEntryAndWhoComesBackWaitsForIt) {
  const Peer first = tcp.join(u"10.0.0.2"_s), second = tcp.join(u"10.0.0.2"_s);
  const Peer console = tcp.join(u"10.0.0.9"_s);
  say(console, "ML|REG|Seat 4|10.0.0.9|N/A|CLIENT|CLIENT$");
  say(first, "ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$");
  say(second, "ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$");
  EXPECT_EQ(heard(console), "NEW|Salon~10.0.0.2~7411~MUSIC$") << "once";
  say(second, "ML|REG|Bar|10.0.0.2|7411|MUSIC|MUSIC$");
  tcp.leave(second);
  EXPECT_EQ(table(), "REQUEST|Seat 4~10.0.0.9~N/A~CLIENT|Salon~10.0.0.2~7411~MUSIC$");

  const Peer back = tcp.join(u"10.0.0.2"_s);
  say(back, "ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$");
  EXPECT_TRUE(log.text.contains("waits: connection 1 is MUSIC"));
  heard(console);
  tcp.leave(first);  // lost without a word, and noticed now
  EXPECT_EQ(heard(console), "NEW|Salon~10.0.0.2~7411~MUSIC$");
  EXPECT_EQ(table(), "REQUEST|Seat 4~10.0.0.9~N/A~CLIENT|Salon~10.0.0.2~7411~MUSIC$");
  tcp.leave(back);
  EXPECT_EQ(table(), "REQUEST|Seat 4~10.0.0.9~N/A~CLIENT$");
}

TEST_F(MasterServiceTest, WhatARegistrationSays) {
  struct {
    const char *from, *sent, *entry;
    bool refused = false;  // the address it advertises
  } const rows[] = {
      {"127.0.0.1", "ML|REG|A||5|MUSIC|MUSIC$", "A~127.0.0.1~5~MUSIC"},
      {"127.0.0.1", "ML|REG|A|0.0.0.0|5|x10|$", "A~127.0.0.1~5~X10"},
      {"127.0.0.1", "ML|REG|A|not.an.address|5|MUSIC|MUSIC$", "A~127.0.0.1~5~MUSIC"},
      {"10.0.0.1", "ML|REG| A~B |10.0.0.1|5|MUSIC$", "A B~10.0.0.1~5~MUSIC"},
      {"10.0.0.1", "ML|REG||10.0.0.1||CLIENT|CLIENT$", "10.0.0.1~10.0.0.1~N/A~CLIENT"},
      {"10.0.0.1", "ML|REG|A|10.0.0.1|0|MUSIC|MUSIC$", nullptr},
      {"10.0.0.1", "ML|REG|A|10.0.0.1|70000|MUSIC|MUSIC$", nullptr},
      {"10.0.0.1", "ML|REG|A|10.0.0.1|5|PRINTER|PRINTER$", nullptr},
      {"127.0.0.1", "ML|REG$", nullptr},
      {"127.0.0.1", "XX|REG|A|127.0.0.1|5|MUSIC|MUSIC$", nullptr},
      {"127.0.0.1", "$", nullptr},
      // Of the machine the master runs on, over the loopback and over the network.
      {"127.0.0.1", "ML|REG|A|192.168.1.5|5|MUSIC|MUSIC$", "A~192.168.1.5~5~MUSIC"},
      {"127.0.0.1", "ML|REG|A|::ffff:192.168.1.5|5|MUSIC|MUSIC$", "A~192.168.1.5~5~MUSIC"},
      {"127.0.0.1", "ML|REG|A|10.0.0.2|5|MUSIC|MUSIC$", "A~127.0.0.1~5~MUSIC", true},
      // Of another machine.
      {"10.0.0.9", "ML|REG|A|10.0.0.2|5|MUSIC|MUSIC$", "A~10.0.0.9~5~MUSIC", true},
      {"10.0.0.9", "ML|REG||192.168.1.5|5|CLIENT$", "10.0.0.9~10.0.0.9~N/A~CLIENT", true},
      {"10.0.0.9", "ML|REG|A|127.0.0.1|5|MUSIC|MUSIC$", "A~10.0.0.9~5~MUSIC", true},
      {"10.0.0.9", "ML|REG|A|::ffff:10.0.0.9|5|MUSIC|MUSIC$", "A~10.0.0.9~5~MUSIC"},
      {"10.0.0.9", "ML|REG|A|172.16.3.4|5|MUSIC|MUSIC$", "A~172.16.3.4~5~MUSIC"},
      {"fd00::2", "ML|REG|A|fd00:0:0::2|5|MUSIC|MUSIC$", "A~fd00::2~5~MUSIC"},
  };
  for (const auto& [from, sent, entry, refused] : rows) {
    const Peer peer = tcp.join(QString::fromLatin1(from));
    log.text.clear();
    say(peer, sent);
    EXPECT_EQ(table(), entry ? QByteArray("REQUEST|") + entry + '$' : "REQUEST$") << sent;
    EXPECT_EQ(log.text.contains("--allow-advertise"), refused) << sent;
    tcp.leave(peer);
  }
}

TEST(IpAddressTest, WhichAreOfThisMachine) {
  for (const char* own : {"127.0.0.1", "::ffff:127.0.0.1"})
    EXPECT_TRUE(isOfThisMachine(*ipAddressOf(QString::fromLatin1(own)))) << own;
  for (const char* other : {"198.51.100.7", "2001:db8::7"})  // kept for documents (RFC 5737, 3849)
    EXPECT_FALSE(isOfThisMachine(*ipAddressOf(QString::fromLatin1(other)))) << other;
}

TEST_F(MasterServiceTest, NobodyFillsTheTable) {
  const Peer greedy = tcp.join(u"10.0.0.1"_s), honest = tcp.join(u"10.0.0.2"_s);
  const auto fill = [this](Peer peer) {
    for (int port = 1; port <= 400; ++port)
      say(peer, "ML|REG|A|10.0.0.1|" + QByteArray::number(port) + "|MUSIC|MUSIC$");
  };
  fill(greedy);
  EXPECT_EQ(table().count('|'), ListenerTable::kMostOfOne);
  for (int i = 0; i < 12; ++i) fill(tcp.join(u"10.0.0.1"_s));
  say(honest, "ML|REG|B|10.0.0.2|9|MOVIES|MOVIES$");
  EXPECT_TRUE(table().endsWith("|B~10.0.0.2~9~MOVIES$"));
  EXPECT_LE(master.table().entries().size(), ListenerTable::kMostOfAddress + 1);
}

TEST_F(MasterServiceTest, WhoIsRegisteredMayBeSilent) {
  const Peer console = tcp.join(), stranger = tcp.join();
  say(console, "ML|REG|Seat 4||N/A|CLIENT|CLIENT$");
  say(stranger, "ML|GET|ALL$");
  pass(limits.idleMs + 1000);
  EXPECT_TRUE(server.has(console));
  EXPECT_FALSE(server.has(stranger));
}

}  // namespace
}  // namespace korvane
