// The connection to the Master Listener: the bytes both ways and what a table changes.
#include "listener/master_listener.h"

#include "tests/listener/music_world.h"

namespace korvane {
namespace {

// As bytes(), with ',' for the end of a sub-field.
QByteArray table(QByteArray text) {
  return bytes(text.replace(',', '\2'));
}

struct MasterListenerTest : MusicWorld {
  MasterListenerTest() {
    state.gMasterListenerIP = u"10.0.0.1"_s;
    state.gMasterListenerPort = u"4000"_s;
    state.gMasterListenerMyName = u"Seat 1\2A"_s;
  }
  void stand() {
    master.connectionMLConnect();
    connectionML.stand();
  }

  FakeWinsock connectionML;
  Screen screen;
  MasterListener master{
      {state, settings, screen, messages, logger, system.pump, system.clock, connectionML}};
};

TEST_F(MasterListenerTest, RegistersAndAsksWhenItStands) {
  const QString address = std::exchange(state.gMasterListenerIP, u"NO"_s);
  master.connectionMLConnect();
  EXPECT_EQ(connectionML.connects, 0);
  state.gMasterListenerIP = address;
  stand();
  EXPECT_EQ(connectionML.RemoteHost, u"10.0.0.1"_s);
  EXPECT_EQ(connectionML.RemotePort, 4000);
  EXPECT_EQ(connectionML.sent, QByteArrayList({bytes("ML|REG|Seat 1 A|10.0.0.7|N/A|CLIENT|CLIENT$"),
                                               bytes("ML|IGET|ALL$")}));
  master.connectionMLConnect();
  EXPECT_EQ(connectionML.connects, 1);
}

TEST_F(MasterListenerTest, ResetAsksForTheTableOrSaysThatThereIsNone) {
  master.mlreset();  // nobody is there
  EXPECT_EQ(messages.texts, QStringList{u"Master Listener is not running, unable to connect."_s});
  EXPECT_EQ(screen.MousePointer(), Screen::Custom);
  system.pump.at(2000, [this] { connectionML.stand(); });
  master.mlreset();
  EXPECT_EQ(connectionML.sent, QByteArrayList({bytes("ML|REG|Seat 1 A|10.0.0.7|N/A|CLIENT|CLIENT$"),
                                               bytes("ML|IGET|ALL$"), bytes("ML|GET|ALL$")}));
  screen.MousePointer = Screen::Hourglass;
  master.mlreset();  // a second press while one is at work
  EXPECT_EQ(connectionML.sent.size(), 3);
  EXPECT_EQ(messages.texts.size(), 1);
}

TEST_F(MasterListenerTest, AListThatNobodyAskedForIsShownOnceAMinute) {
  const QByteArray list = table("REQUEST|a,1.1.1.1,1,MUSIC$");
  int shows = 0;
  master.networkAsked = [&](const QList<ListenerEntry>&) {
    if (++shows > 1) return;
    connectionML.arrive(list);  // the form is up, and so for two minutes
    system.clock.advance(120'000);
  };
  stand();
  connectionML.arrive(list.repeated(3));
  system.clock.advance(59'999);
  connectionML.arrive(list);
  EXPECT_EQ(shows, 1);
  master.mlreset();
  connectionML.arrive(list.repeated(2));
  EXPECT_EQ(shows, 2);
  system.clock.advance(60'000);
  connectionML.arrive(list.repeated(2));
  EXPECT_EQ(shows, 3);
}

TEST_F(MasterListenerTest, TheFirstEntryOfATypeWins) {
  const struct {
    const char *delivery, *taken;
  } cases[] = {
      {"IREQUEST$", ": :"},
      {"GARBAGE|a,1.1.1.1,1,MUSIC$", ": :"},
      {"IREQUEST|a,1.1.1.1,1,MUSIC", ": :"},  // no end: not a record
      {"IREQUEST|a|b,2|||,,,$", ": :"},
      {"IREQUEST|a,1.1.1.1,1,MUSIC|b,2.2.2.2,2,MUSIC|c,3.3.3.3,3,MOVIES$", "1.1.1.1:1 3.3.3.3:3"},
      {"NEW|d,4.4.4.4,4,MUSIC$", "1.1.1.1:1 3.3.3.3:3"},
  };
  stand();
  for (const auto& [delivery, taken] : cases) {
    connectionML.arrive(table(delivery));
    EXPECT_EQ(u"%1:%2 %3:%4"_s.arg(state.gMusicListenerIP, state.gMusicListenerPort,
                                   state.gMovieListenerIP, state.gMovieListenerPort),
              QLatin1StringView(taken))
        << delivery;
  }
  EXPECT_EQ(state.gMusicListenerName, u"a"_s);
  EXPECT_EQ(connectionML.connects, 1);
  state.gMusicListenerIP.clear();  // disabled
  connectionML.arrive(table("NEW|d,4.4.4.4,4,MUSIC$"));
  EXPECT_EQ(state.gMusicListenerIP, u"4.4.4.4"_s);
}

// A list of a thousand services comes in several deliveries.
TEST_F(MasterListenerTest, ASupervisedLinkJoinsWhatADeliveryCut) {
  setting("LinkSupervision=YES");
  stand();
  const QByteArray list = table("IREQUEST|a,1.1.1.1,1,MUSIC$");
  connectionML.arrive(list.first(12));
  connectionML.arrive(list.sliced(12));
  EXPECT_EQ(state.gMusicListenerIP, u"1.1.1.1"_s);
}

TEST(ListenerList, IsPlainTextWithItsBlanksAndWithinItsCap) {
  const auto entries = [](const QByteArray& text) {
    return listenerEntries(table(text), WireText::Windows1252);
  };
  EXPECT_TRUE(entries("REQUEST").isEmpty());
  EXPECT_EQ(entries("REQUEST| Sa\nlon\x7F,1.1.1.1, 5 |alone"),
            QList<ListenerEntry>(
                {{u" Sa lon "_s, u"1.1.1.1"_s, u" 5 "_s, {}}, {u"alone"_s, {}, {}, {}}}));
  EXPECT_EQ(entries("REQUEST" + QByteArray("|x,1.1.1.1,1,CLIENT").repeated(5000) + "|" +
                    QByteArray(100'000, 'y'))
                .size(),
            4096);
}

TEST(ListenerList, FollowsAListenerThatMoved) {
  const ListenerEntry current{u"Cabin"_s, u"1.1.1.1"_s, u"7"_s, u"MUSIC"_s};
  const ListenerEntry moved{u"Cabin"_s, u"2.2.2.2"_s, u"7"_s, u"MUSIC"_s};
  const ListenerEntry other{u"Bar"_s, u"3.3.3.3"_s, u"7"_s, u"MUSIC"_s};
  const ListenerEntry movies{u"Cabin"_s, u"4.4.4.4"_s, u"7"_s, u"MOVIES"_s};
  EXPECT_EQ(inPlaceOf(current, {other, moved}), moved);
  EXPECT_EQ(inPlaceOf(current, {moved, other}), moved);
  EXPECT_EQ(inPlaceOf(current, {movies, other}), other);
  EXPECT_EQ(inPlaceOf(current, {moved, {u"Cabin"_s, u"1.1.1.1"_s, u" 07"_s, u"MUSIC"_s}}),
            std::nullopt);
  EXPECT_EQ(inPlaceOf(current, {movies, {u"Cabin"_s, {}, {}, u"MUSIC"_s}}), std::nullopt);
}

}  // namespace
}  // namespace korvane
