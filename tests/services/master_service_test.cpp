// The Master Listener's side of the wire, byte for byte.
#include "services/master/master_service.h"

#include "tests/services/service_world.h"

namespace korvane {
namespace {

struct MasterServiceTest : ServiceWorld {
  RecordServer server{{tcp, doorTicker, system.clock, log, allow, limits}};
  MasterService master{server, log, WireText::Windows1252};
};

TEST_F(MasterServiceTest, ATableThatLivesWithItsConnections) {
  const Peer listener = tcp.join(), console = tcp.join();
  say(listener, "ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$");
  say(console, "ML|REG|Seat 4|10.0.0.9|N/A|CLIENT|CLIENT$ML|IGET|ALL$");
  EXPECT_EQ(heard(console), "IREQUEST|Salon~10.0.0.2~7411~MUSIC|Seat 4~10.0.0.9~N/A~CLIENT$");
  EXPECT_EQ(heard(listener), "NEW|Seat 4~10.0.0.9~N/A~CLIENT$");

  const Peer movies = tcp.join();
  say(movies, "ML|REG|Cinema|10.0.0.3|7412|MOVIES|MOVIES$");
  EXPECT_EQ(heard(console), "NEW|Cinema~10.0.0.3~7412~MOVIES$");
  EXPECT_EQ(heard(movies), "");

  tcp.leave(listener);
  say(console, "ML|GET|ALL$");
  EXPECT_EQ(heard(console), "REQUEST|Seat 4~10.0.0.9~N/A~CLIENT|Cinema~10.0.0.3~7412~MOVIES$");
  const Peer back = tcp.join();
  say(back, "ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$");
  EXPECT_EQ(heard(console), "NEW|Salon~10.0.0.2~7411~MUSIC$");
}

TEST_F(MasterServiceTest, WhoComesBackTakesItsOwnPlace) {
  const Peer lost = tcp.join(), back = tcp.join(), other = tcp.join();
  say(lost, "ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$");
  say(back, "ML|REG|Salon|10.0.0.2|7411|MUSIC|MUSIC$");
  say(back, "ML|REG|Bar|10.0.0.2|7411|MUSIC|MUSIC$");
  tcp.leave(lost);
  say(other, "ML|IGET|ALL$");
  EXPECT_EQ(heard(other), "IREQUEST|Bar~10.0.0.2~7411~MUSIC$");
}

TEST_F(MasterServiceTest, WhatARegistrationTells) {
  const std::pair<const char*, const char*> table[] = {
      {"ML|REG|A||5|MUSIC|MUSIC$", "A~127.0.0.1~5~MUSIC"},
      {"ML|REG|A|0.0.0.0|5|x10|$", "A~127.0.0.1~5~X10"},
      {"ML|REG|A|not.an.address|5|MUSIC|MUSIC$", "A~127.0.0.1~5~MUSIC"},
      {"ML|REG| A~B |10.0.0.1|5|MUSIC$", "A B~10.0.0.1~5~MUSIC"},
      {"ML|REG||10.0.0.1||CLIENT|CLIENT$", "10.0.0.1~10.0.0.1~N/A~CLIENT"},
      {"ML|REG|A|10.0.0.1|0|MUSIC|MUSIC$", nullptr},
      {"ML|REG|A|10.0.0.1|70000|MUSIC|MUSIC$", nullptr},
      {"ML|REG|A|10.0.0.1|5|PRINTER|PRINTER$", nullptr},
      {"ML|REG$", nullptr},
      {"XX|REG|A|10.0.0.1|5|MUSIC|MUSIC$", nullptr},
      {"$", nullptr},
  };
  for (const auto& [sent, entry] : table) {
    const Peer peer = tcp.join();
    say(peer, sent);
    say(peer, "ML|GET|ALL$");
    EXPECT_EQ(heard(peer), entry ? QByteArray("REQUEST|") + entry + '$' : "REQUEST$") << sent;
    tcp.leave(peer);
  }
}

TEST_F(MasterServiceTest, NobodyFillsTheTable) {
  const Peer greedy = tcp.join(), honest = tcp.join();
  for (int port = 1; port <= 400; ++port)
    say(greedy, "ML|REG|A|10.0.0.1|" + QByteArray::number(port) + "|MUSIC|MUSIC$");
  say(honest, "ML|REG|B|10.0.0.2|9|MOVIES|MOVIES$ML|GET|ALL$");
  EXPECT_EQ(heard(honest).count('|'), ListenerTable::kMostOfOne + 1);
}

}  // namespace
}  // namespace korvane
