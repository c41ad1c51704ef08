// The server role: commands to exact bytes, records to what the form shows, and a connection that
// comes, goes and breaks.
#include "tests/listener/music_world.h"

namespace korvane {
namespace {

// The supervision, which only keeps why the link ended.
struct HeardLink : LinkNews {
  void linkTries() override {}
  void linkStands() override {}
  void linkAsks() override {}
  void linkHears() override {}
  void linkEnds(const QString& why) override { ends << why; }
  void linkChanged() override {}
  QStringList ends;
};

struct ServerMusicTest : MusicWorld {
  ServerMusicTest() {
    state.gMusicListenerIP = u"10.0.0.2"_s;
    state.gMusicListenerPort = u" 4001 "_s;
    music.setLinkNews(&link);
  }
  ~ServerMusicTest() override { music.setLinkNews(nullptr); }
  void connect() {
    music.ConnectionMP3Connect();
    socket.stand();
    socket.sent.clear();
  }
  void send(const QString& command, const QString& argument = {}) {
    music.ConnectionMP3Send(u"MUSIC"_s, command, argument);
  }

  HeardLink link;
};

TEST_F(ServerMusicTest, ConnectsOnceAndAsksForTheStatus) {
  music.ConnectionMP3Connect();
  EXPECT_EQ(socket.RemoteHost, u"10.0.0.2"_s);
  EXPECT_EQ(socket.RemotePort, 4001);
  EXPECT_EQ(socket.LocalHost, u""_s);
  EXPECT_EQ(caption("lblCurrentPlay"), u"Status:Idle"_s);
  EXPECT_EQ(system.pump.waitedMs, 0);
  socket.stand();
  EXPECT_EQ(socket.sent, QByteArrayList{bytes("MUSIC|STATUS$")});
  music.ConnectionMP3Connect();
  EXPECT_EQ(socket.connects, 1);
}

TEST_F(ServerMusicTest, APortThatIsNoNumberIsLoggedAndNothingWaits) {
  for (const char* port : {"", "NO", "70000", "-1"}) {
    state.gMusicListenerPort = QString::fromLatin1(port);
    music.ConnectionMP3Connect();
  }
  EXPECT_EQ(socket.connects, 0);
  EXPECT_EQ(system.pump.waits, 0);
  EXPECT_EQ(log().count(u"Error 13 (Type mismatch) in procedure connectionmp3Connect of Form "
                        u"frmMain\n"_s),
            4);
  EXPECT_EQ(link.ends.count(u"its port is no number"_s), 4);
}

TEST_F(ServerMusicTest, ConnectsFromTheChosenNetworkCardAndSaysSoWhenThatFails) {
  setting("NICCard= 10.0.0.9 ");
  music.ConnectionMP3Connect();
  EXPECT_EQ(socket.LocalHost, u"10.0.0.9"_s);
  const QString why = u"Cannot connect from 10.0.0.9: it is no address of this machine."_s;
  socket.breakWith(why);
  EXPECT_EQ(link.ends, QStringList{why});
  EXPECT_TRUE(log().endsWith(u"connectionMP3 "_s + why + u'\n')) << log().toStdString();
}

TEST_F(ServerMusicTest, CommandsGoOutAsTheirBytesInTheEncodingThatIsSet) {
  connect();
  musicPageOpen();
  coverArt.visible = true;
  music.ConnectionMP3Send(u" music "_s, u" PLAY "_s, u" C:\\M\\\u00e9.mp3 "_s, u"T"_s);
  EXPECT_FALSE(coverArt.visible());
  EXPECT_EQ(coverArt.tag(), u"FALSE"_s);
  EXPECT_EQ(ini(u"GENERAL"_s, u"LASTSONGPLAYED"_s), u"C:\\M\\\u00e9.mp3"_s);
  send(u"PLAY"_s);
  EXPECT_EQ(ini(u"GENERAL"_s, u"LASTSONGPLAYED"_s), u""_s);
  EXPECT_EQ(socket.sent,
            QByteArrayList({bytes("MUSIC|PLAY|C:\\M\\\xe9.mp3|T$"), bytes("MUSIC|PLAY$")}));
  EXPECT_TRUE(player.calls.isEmpty());

  settings.write(key::ListenerEncoding, u"utf-8"_s);
  music.ConnectionMP3Close();
  connect();
  music.ConnectionMP3Send(u"MUSIC"_s, u"PLAY"_s, u"/\u00e9"_s, u"\u4e2d"_s);
  EXPECT_EQ(socket.sent.last(), bytes("MUSIC|PLAY|/\xc3\xa9|\xe4\xb8\xad$"));
  socket.arrive(bytes("SONGPLAYING|\xe4\xb8\xad$"));
  EXPECT_EQ(caption("lblCurrentPlay"), u"Playing: \u4e2d"_s);
}

TEST_F(ServerMusicTest, ACommandWaitsForALinkThatIsBeingMade) {
  const QByteArray status = bytes("MUSIC|STATUS$");
  const struct {
    const char* what;
    Winsock::State now;
    std::function<void()> afterOneSecond;
    int waitedMs;
    QByteArrayList sent;
  } cases[] = {
      {"no link", Winsock::Closed, {}, 0, {}},
      {"comes late",
       Winsock::Connecting,
       [this] { system.pump.at(1000, [this] { socket.stand(); }); },
       2000,
       {status, bytes("MUSIC|PLAY|/a$")}},
      {"another press meanwhile, and the page is opened",
       Winsock::ResolvingHost,
       [this] {
         send(u"VOLUME"_s, u"7"_s);
         send(u"STATUS"_s);
         system.pump.at(500, [this] { socket.stand(); });
       },
       1500,
       {status, bytes("MUSIC|PLAY|/a$"), bytes("MUSIC|VOLUME|7$")}},
      {"tried again meanwhile",
       Winsock::Connecting,
       [this] {
         music.connectAgain();
         socket.stand();
       },
       1000,
       {status, bytes("MUSIC|PLAY|/a$")}},
      {"refused", Winsock::Connecting, [this] { socket.breakWith(u"refused"_s); }, 1000, {}},
      {"never comes", Winsock::ConnectionPending, [this] { send(u"VOLUME"_s, u"7"_s); }, 3000, {}},
  };
  for (const auto& c : cases) {
    music.ConnectionMP3Close();
    socket.setState(c.now);
    socket.sent.clear();
    const int before = system.pump.waitedMs;
    if (c.afterOneSecond) system.pump.at(1000, c.afterOneSecond);
    send(u"PLAY"_s, u"/a"_s);
    EXPECT_EQ(system.pump.waitedMs - before, c.waitedMs) << c.what;
    EXPECT_EQ(socket.sent, c.sent) << c.what;
  }
  socket.stand();  // after all: what was dropped does not come back
  EXPECT_EQ(socket.sent, QByteArrayList{status});
}

// Who mirrors what plays reads the state when the caption changes.
TEST_F(ServerMusicTest, TheStateIsTrueBeforeTheCaptionChanges) {
  struct Mirror : FormObserver {
    explicit Mirror(const AppState& of) : state(of) {}
    void controlChanged(Control& control, Aspect) override {
      if (control.name == u"lblCurrentPlay") titles << state.gSongPlayingTitle;
    }
    void formChanged(Form&, Aspect) override {}
    const AppState& state;
    QStringList titles;
  } mirror(state);
  connect();
  form.observe(&mirror);
  socket.arrive(bytes("SONGPLAYING|One$MEDIAPLAYERSTATE|2$"));
  form.forget(&mirror);
  EXPECT_EQ(mirror.titles, QStringList{u"One"_s});
  EXPECT_EQ(state.gMusicState, MusicState::Play);
  state.gMusicState = MusicState::Paused;
  socket.arrive(bytes("PAUSETOPLAY$"));
  EXPECT_EQ(state.gMusicState, MusicState::Play);
  socket.peerCloses();
  EXPECT_EQ(state.gSongPlayingTitle, u""_s);
}

TEST_F(ServerMusicTest, RecordsShowOnTheForm) {
  connect();
  socket.arrive(
      bytes("MUSICDURATION|200$SONGPLAYING|One$MEDIAPLAYERSTATE|2$MUSICTIMER|0:07|7$LOST"));
  EXPECT_EQ(caption("lblDuration"), u"3:20"_s);
  EXPECT_EQ(Slider1.maximum(), 200);
  EXPECT_EQ(caption("lblCurrentPlay"), u"Playing: One"_s);
  EXPECT_EQ(state.gPlayMode, PlayMode::Playing);
  EXPECT_EQ(Slider1.value(), 7);
  EXPECT_EQ(Slider1.text(), u"Current= 0:07 -- Remaining= 3:13"_s);

  socket.arrive(bytes("VOLUME|30$"));  // no end of the one before it, which is lost
  EXPECT_EQ(caption("lblVolume"), u""_s);
  EXPECT_EQ(music.listenerVolume, 30);
  socket.arrive(bytes("MAXVOLUME|200$VOLUME|31$"));
  EXPECT_EQ(caption("lblVolume"), u"Volume 16%"_s);
  EXPECT_EQ(music.listenerMaxVolume, 200);

  state.gPlayMode = PlayMode::Paused;
  socket.arrive(bytes("PAUSETOPLAY$"));
  EXPECT_EQ(state.gPlayMode, PlayMode::Playing);
  EXPECT_EQ(picture("cmdControls", 1) + picture("cmdControls", 2) + picture("cmdControls", 3),
            u"Music/playbMusic/pauseMusic/stop"_s);
  EXPECT_TRUE(news.heard.isEmpty());
}

TEST_F(ServerMusicTest, StatesPressTheTransport) {
  connect();
  using enum PlayMode;
  const struct {
    PlayMode before;
    QByteArray number;
    PlayMode after;
    QStringList heard;
  } cases[] = {
      {Playing, "1", Paused, {u"paused"_s}},
      {Playing, "0", Stopped, {u"stopped"_s}},
      {Playing, "6", Stopped, {u"stopped"_s}},
      {Paused, "1", Paused, {}},
      {Stopped, "0", Stopped, {}},
      {Stopped, "2", Playing, {}},
      {Playing, "x", Playing, {}},
      {Playing, "7", Playing, {}},
      {Playing, "1e30", Playing, {}},
  };
  for (const auto& c : cases) {
    state.gPlayMode = c.before;
    news.heard.clear();
    socket.arrive(bytes("MEDIAPLAYERSTATE|" + c.number + "$"));
    EXPECT_EQ(state.gPlayMode, c.after) << c.number.constData();
    EXPECT_EQ(news.heard, c.heard) << c.number.constData();
  }
}

TEST_F(ServerMusicTest, BrokenRecordsAreSkippedAndTheNextStillCounts) {
  connect();
  Slider1.maximum = 50;
  for (const char* broken :
       {"", "|", "NOTHING|1", "MUSICDURATION", "MUSICDURATION|", "MUSICDURATION|nan", "MUSICTIMER",
        "MUSICTIMER|0:01|x", "MEDIAPLAYERSTATE", "SONGPLAYING", "VOLUME", "MAXVOLUME|", "ERROR",
        "RECEIVEJPG", "RECEIVEJPG|many", "RECEIVEJPG|1e12", "RECEIVEJPG|-1", "musictimer|0:01|9"}) {
    socket.arrive(bytes(QByteArray(broken) + "$MUSICTIMER|0:03|3$"));
    EXPECT_EQ(Slider1.value(), 3) << broken;
    EXPECT_EQ(Slider1.maximum(), 50) << broken;
    Slider1.value = 0;
  }
  system.pump.settle();
  EXPECT_TRUE(messages.texts.isEmpty());
  socket.arrive("SONGPLAYING" + QByteArray(1, '\0') + QByteArray(4'000'000, 'x') + '\1');
  EXPECT_LT(caption("lblCurrentPlay").size(), 1100);
}

TEST_F(ServerMusicTest, TheCoverArtComesInItsOwnDeliveries) {
  system.files.put(u"/home/coverArt.jpg"_s, "an older and longer picture");
  musicPageOpen();
  connect();
  socket.arrive(bytes("RECEIVEJPG|6$MUSICTIMER|0:09|9$"));
  EXPECT_EQ(Slider1.value(), 0);
  EXPECT_FALSE(system.files.FileExists(u"/home/coverArt.jpg"_s));
  socket.arrive(bytes("ab$"));
  EXPECT_FALSE(coverArt.visible());
  socket.arrive("def");
  EXPECT_EQ(*coverArt.picture->bytes, bytes("ab$def"));
  EXPECT_TRUE(coverArt.visible());
  EXPECT_EQ(coverArt.tag(), u"TRUE"_s);
  socket.arrive(bytes("MUSICTIMER|0:09|9$RECEIVEJPG|1000$"));
  EXPECT_EQ(Slider1.value(), 9);
  socket.peerCloses();  // within a picture
  system.files.room = 0;
  connect();
  socket.arrive(bytes("MUSICTIMER|0:04|4$RECEIVEJPG|3$"));
  EXPECT_EQ(Slider1.value(), 4);
  socket.arrive("abc");
  EXPECT_EQ(*coverArt.picture->bytes, bytes("ab$def")) << "no room for another";
  socket.arrive(bytes("MUSICTIMER|0:05|5$"));
  EXPECT_EQ(Slider1.value(), 5);
}

TEST_F(ServerMusicTest, ErrorsAreSaidOneBoxAtATime) {
  connect();
  messages.onShow = [&] {
    if (messages.texts.size() == 1)
      socket.arrive(bytes("ERROR|b$ERROR|b$ERROR|c$ERROR|d$ERROR|e$ERROR|f$"));
    system.pump.settle();
  };
  socket.arrive(bytes("ERROR|a$"));
  EXPECT_TRUE(messages.texts.isEmpty());  // never from inside a delivery
  system.pump.settle();
  EXPECT_EQ(messages.texts, QStringList({u"a"_s, u"b\nc\nd\nAnd 2 more."_s}));
  EXPECT_TRUE(news.heard.isEmpty());  // no song was asked for
}

TEST_F(ServerMusicTest, ASongTheListenerRefusesGivesWayToTheNext) {
  connect();
  music.ConnectionMP3Send(u"MUSIC"_s, u"PLAY"_s, u"/a"_s, u"A"_s);
  socket.arrive(bytes("ERROR|File not found$"));
  system.pump.settle();
  music.ConnectionMP3Send(u"MUSIC"_s, u"PLAY"_s, u"/b"_s, u"B"_s);
  socket.arrive(bytes("SONGPLAYING|B$MUSICTIMER|0:01|1$ERROR|disk is hot$ENDOFSTREAM$"));
  system.pump.settle();
  EXPECT_EQ(news.heard, QStringList({u"failed 1"_s, u"end"_s}));
}

TEST_F(ServerMusicTest, AListenerThatVanishesStopsTheFrontEnd) {
  enum class End { Closes, Breaks, ComesNotBack, DropsAllItIsSent };
  for (const End end : {End::Closes, End::Breaks, End::ComesNotBack, End::DropsAllItIsSent}) {
    connect();
    socket.arrive(bytes("MEDIAPLAYERSTATE|2$MUSICTIMER|0:09|9$"));
    news.heard.clear();
    if (end >= End::ComesNotBack) {  // silent, so tried again by the supervision
      music.connectAgain();
      EXPECT_TRUE(news.heard.isEmpty());
    }
    if (end == End::DropsAllItIsSent) {
      music.connectAgain();
      EXPECT_EQ(news.heard, QStringList{u"stopped"_s}) << "before any error comes";
    }
    end == End::Closes ? socket.peerCloses() : socket.breakWith(u"Connection timed out"_s);
    EXPECT_EQ(news.heard, QStringList{u"stopped"_s});
    EXPECT_EQ(music.connectionState(), Winsock::Closed);
    EXPECT_EQ(Slider1.value(), 0);
    EXPECT_EQ(state.gPlayMode, PlayMode::Stopped);
  }
}

TEST_F(ServerMusicTest, AFailedConnectionIsLoggedUnlessTheSourceIsTheCd) {
  music.ConnectionMP3Connect();
  state.gMusicType = MusicSource::Cd;
  socket.breakWith(u"refused"_s);
  EXPECT_EQ(music.connectionState(), Winsock::Error);
  EXPECT_EQ(log(), u""_s);
  state.gMusicType = MusicSource::Digital;
  socket.breakWith(u"refused"_s);
  EXPECT_EQ(music.connectionState(), Winsock::Closed);
  EXPECT_TRUE(log().endsWith(u"Error in connectionMP3 refused\n"_s));
  EXPECT_TRUE(news.heard.isEmpty());
}

TEST_F(ServerMusicTest, TheRoleChangesOnlyWhileNothingPlays) {
  Control& place = *form.find(u"lblMusicPlay", 0);
  place.visible = true;
  const auto pictures = [this] { return picture("lblMusicPlay", 0) + picture("lblMusicPlay", 1); };
  const auto stored = [this] { return settings.GetSetting(u"KRV"_s, u"MUSIC"_s, u"MUSICTYPE"_s); };
  Slider1.value = 3;
  form.fire(place, {Event::Click});
  EXPECT_FALSE(state.gLocalListener);
  EXPECT_EQ(messages.texts, QStringList{u"Stop the music first, then choose where it plays."_s});
  Slider1.value = 0;
  form.fire(place, {Event::Click});
  EXPECT_TRUE(state.gLocalListener);
  EXPECT_EQ(pictures(), u"music/AtSeatonmusic/InCabinOff"_s);
  EXPECT_EQ(stored(), u"LOCAL"_s);
  EXPECT_EQ(socket.connects, 0);
  form.fire(place, {Event::Click});
  EXPECT_FALSE(state.gLocalListener);
  EXPECT_EQ(pictures(), u"music/AtSeatOffmusic/InCabinOn"_s);
  EXPECT_EQ(stored(), u"SERVER"_s);
  EXPECT_EQ(socket.connects, 1);
}

}  // namespace
}  // namespace korvane
