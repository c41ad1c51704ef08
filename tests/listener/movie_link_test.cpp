// The movie connection: commands to exact bytes or to this seat, records to what the form shows,
// and a connection that comes, goes and breaks.
#include "listener/link_supervision.h"
#include "tests/fakes/form_world.h"
#include "tests/listener/movie_parts.h"

namespace korvane {
namespace {

struct MovieLinkTest : testing::Test, MovieParts {
  void send(const QString& target, const QString& command, const QString& argument1 = {},
            const QString& argument2 = {}) {
    movies.ConnectionMovieSend(target, command, argument1, argument2);
  }
  void play(MusicState now = MusicState::Play) {
    state.gMusicState = now;
    movieNews.heard.clear();
  }
};

TEST_F(MovieLinkTest, CommandsGoOutAsTheirBytes) {
  const struct {
    const char *target, *command, *argument1, *argument2;
    QByteArray sent;
  } cases[] = {
      {" movie ", " PLAY ", " C:\\V\\a.avi ", " A film ", "MOVIE|PLAY|C:\\V\\a.avi|A film$"},
      {"MOVIE", "PLAY", "", "", "MOVIE|PLAY$"},
      {"MOVIE", "STOP", "", "", "MOVIE|STOP$"},
      {"MOVIE", "PAUSE", "", "", "MOVIE|PAUSE$"},
      {"MOVIE", "MUTE=TRUE", "", "", "MOVIE|MUTE=TRUE$"},
      {"MOVIE", "VOLUME", "7", "", "MOVIE|VOLUME|7$"},
      {"MOVIE", "CURRENTPOSITION", "61,5", "", "MOVIE|CURRENTPOSITION|61,5$"},
      {"MOVIE", "FULLSCREEN", "", "", "MOVIE|FULLSCREEN$"},
      {"MOVIE", "NORMALSCREEN", "", "", "MOVIE|NORMALSCREEN$"},
      {"dvdp", "PLAY", "", "", "DVDP|PLAY$"},
      {"DVDP", "NEXTCHAPTER", "", "", "DVDP|NEXTCHAPTER$"},
      {"DVDP", "ENTER", "", "", "DVDP|ENTER$"},
  };
  stand();
  for (const auto& c : cases) {
    movieSocket.sent.clear();
    send(QString::fromLatin1(c.target), QString::fromLatin1(c.command),
         QString::fromLatin1(c.argument1), QString::fromLatin1(c.argument2));
    EXPECT_EQ(movieSocket.sent, QByteArrayList{bytes(c.sent)});
  }
  EXPECT_TRUE(seat.performed.isEmpty());
  EXPECT_EQ(ini(u"GENERAL"_s, u"LASTSONGPLAYED"_s), u"NO"_s);
}

TEST_F(MovieLinkTest, AtSeatTheSeatPerformsAndAListenerIsNotHeard) {
  stand();
  state.gMovieListener = false;
  seat.onPerform = [this] {
    movies.localListenerReply(replyRecord({u"MOVIEPLAYING"_s, u"\u4e2d"_s}));
  };
  send(u" movie "_s, u" PLAY "_s, u" /a.avi "_s, u" A "_s);
  EXPECT_EQ(seat.performed, QStringList{u"MOVIE|PLAY|/a.avi|A"_s});
  EXPECT_EQ(caption("lblCurrentPlay"), u"Playing: \u4e2d"_s);
  EXPECT_TRUE(movieSocket.sent.isEmpty());
  movieSocket.arrive(bytes("MOVIEPLAYING|another$MOVIEPLAYERSTATE|PLAYING$MOVIEERROR|bad$"));
  movieSocket.peerCloses();
  EXPECT_EQ(movieNews.heard, QStringList{u"titled \u4e2d"_s});
}

TEST_F(MovieLinkTest, ConnectsOnceAndAsksForTheStatusOfWhatIsChosen) {
  state.gMovieListenerPort.clear();
  movies.ConnectionMovieConnect();
  EXPECT_EQ(movieSocket.connects + system.pump.waits, 0);
  EXPECT_EQ(log(), u""_s);
  state.gMovieListenerPort = u" 4002 "_s;
  movies.ConnectionMovieConnect();
  EXPECT_EQ(movieSocket.RemoteHost + u':' + QString::number(movieSocket.RemotePort),
            u"10.0.0.3:4002"_s);
  EXPECT_EQ(caption("lblCurrentPlay"), u"Status:Idle"_s);
  send(u"MOVIE"_s, u"STATUS"_s);  // as the page does; a link that is being made asks by itself
  movieSocket.stand();
  movies.ConnectionMovieConnect();
  EXPECT_EQ(movieSocket.connects, 1);
  state.gMovieType = MovieType::ListenerDvd;
  movieSocket.stand();
  EXPECT_EQ(movieSocket.sent, QByteArrayList({bytes("MOVIE|STATUS$"), bytes("DVDP|STATUS$")}));
}

TEST_F(MovieLinkTest, WithoutALinkACommandIsDroppedAndForTheListenersDvdOneIsMade) {
  send(u"MOVIE"_s, u"PLAY"_s, u"/a"_s, u"A"_s);
  EXPECT_EQ(movieSocket.connects, 0);
  EXPECT_EQ(caption("lblCurrentPlay"), u""_s);

  state.gMovieType = MovieType::ListenerDvd;
  system.pump.at(1000, [this] { movieSocket.breakWith(u"refused"_s); });
  send(u"DVDP"_s, u"PLAY"_s);
  EXPECT_EQ(caption("lblCurrentPlay"), u"Status: Movie Listener not connected"_s);
  EXPECT_TRUE(log().endsWith(u"Error in Movie Connection  refused\n"_s));
  EXPECT_TRUE(movieNews.heard.isEmpty());  // nothing had played

  system.pump.at(1000, [this] { movieSocket.stand(); });
  send(u"DVDP"_s, u"PLAY"_s);
  EXPECT_EQ(movieSocket.sent, QByteArrayList({bytes("DVDP|STATUS$"), bytes("DVDP|PLAY$")}));
}

TEST_F(MovieLinkTest, RecordsShowOnTheForm) {
  const struct {
    QByteArray delivery;
    double maximum, value;
    QString text, duration;
  } cases[] = {
      {"MOVIEDURATION|200$MOVIETIMER|0:07 of 3:20|7$LOST", 200, 7, u"0:07 of 3:20"_s, u"3:20"_s},
      {"MOVIETIMER|9:00|540$", 200, 200, u"9:00"_s, u"3:20"_s},  // beyond the length
      {"MOVIETIMER|-|-1$", 200, 0, u"-"_s, u"3:20"_s},
      {"MOVIETIMER|x|1e300$MOVIETIMER|y|nan$MOVIETIMER|z$", 200, 0, u"z"_s, u"3:20"_s},
      {"MOVIEDURATION|-7$MOVIEDURATION|1e12$MOVIEDURATION|$MOVIEDURATION$", 200, 0, u"z"_s,
       u"3:20"_s},
      {"DVDMOVIETIMER|Chapter 2 of 4|61|3725$", 3725, 61, u"Chapter 2 of 4"_s, u"62:05"_s},
      {"DVDMOVIETIMER|Chapter 4|9999|3725$", 3725, 3725, u"Chapter 4"_s, u"62:05"_s},
      {"DVDMOVIETIMER|menu|1|-3$ENDOFSTREAM$NOTHING|1$$|$", 3725, 1, u"menu"_s, u"62:05"_s},
      {"MOVIEDURATION|0$MOVIETIMER|0:12|12$", 0, 12, u"0:12"_s, u"0:00"_s},  // of unknown length
  };
  stand();
  for (const auto& c : cases) {
    movieSocket.arrive(bytes(c.delivery));
    EXPECT_EQ(Slider1.maximum(), c.maximum) << c.delivery.constData();
    EXPECT_EQ(Slider1.value(), c.value) << c.delivery.constData();
    EXPECT_EQ(Slider1.text(), c.text) << c.delivery.constData();
    EXPECT_EQ(caption("lblDuration"), c.duration) << c.delivery.constData();
  }
  movieSocket.arrive(bytes("VOLUME|1$MAXVOLUME|200$VOLUME|50$"));
  EXPECT_EQ(caption("lblVolume"), u"Volume 25%"_s);
  EXPECT_EQ(movies.listenerVolume, 50);
  movieSocket.arrive(
      bytes("MOVIESCREEN|FULL$MOVIESCREEN$MOVIESCREEN|NORMAL$MOVIEERROR$"
            "MOVIEERROR|No disc$"));
  EXPECT_EQ(movieNews.heard, QStringList({u"large"_s, u"failed No disc"_s}));
  movieSocket.arrive("MOVIEPLAYING" + QByteArray(1, '\0') + QByteArray(4'000'000, 'x') + '\1');
  EXPECT_LT(caption("lblCurrentPlay").size(), 1100);
}

TEST_F(MovieLinkTest, StatesAreTakenByTheTransportWithoutACommandOfOurs) {
  using enum MusicState;
  const struct {
    MusicState before;
    QByteArray record;
    MusicState after;
    QStringList heard;
  } cases[] = {
      {Stop, "MOVIEPLAYERSTATE|PLAYING$", Play, {u"plays"_s}},
      {Paused, "MOVIEPLAYERSTATE|PLAYING$", Play, {u"plays"_s}},
      {Play, "MOVIEPLAYERSTATE|PLAYING$", Play, {}},
      {Play, "MOVIEPLAYERSTATE|PAUSED$", Paused, {u"paused"_s}},
      {Paused, "MOVIEPLAYERSTATE|PAUSED$", Paused, {}},
      {Paused, "MOVIEPLAYERSTATE|STOP$", Stop, {u"stopped"_s}},
      {Stop, "MOVIEPLAYERSTATE|STOP$", Stop, {}},
      {Paused, "PAUSETOPLAY$", Play, {u"plays"_s}},
      {Play, "MOVIEPLAYERSTATE|playing$MOVIEPLAYERSTATE|$MOVIEPLAYERSTATE$MOVIE|STOP$", Play, {}},
      {Stop, "MOVIEPLAYING|One$MOVIEPLAYERSTATE|PLAYING$", Play, {u"titled One"_s, u"plays"_s}},
  };
  stand();
  for (const auto& c : cases) {
    play(c.before);
    movieNews.states.clear();
    movieSocket.arrive(bytes(c.record));
    EXPECT_EQ(state.gMusicState, c.after) << c.record.constData();
    EXPECT_EQ(movieNews.heard, c.heard) << c.record.constData();
    EXPECT_EQ(movieNews.states.value(movieNews.states.size() - 1, c.after), c.after);
  }
  EXPECT_EQ(state.gSongPlayingTitle, u"One"_s);
  EXPECT_EQ(state.gPlayMode, PlayMode::Stopped);  // which is the music's
  EXPECT_TRUE(movieSocket.sent.isEmpty());
}

TEST_F(MovieLinkTest, AHeldSliderDropsTheRestOfADiscsBlockAndOneRecordOfAFiles) {
  stand();
  play();
  Slider1.maximum = 100;
  Slider1.value = 5;
  state.sliderHeld = true;
  movieSocket.arrive(bytes("MOVIETIMER|0:07|7$MOVIEDURATION|200$"));
  EXPECT_EQ(Slider1.value(), 5);
  EXPECT_EQ(Slider1.maximum(), 200);
  movieSocket.arrive(bytes("DVDMOVIETIMER|c|8|300$MOVIEPLAYERSTATE|STOP$"));
  EXPECT_EQ(Slider1.maximum(), 200);
  EXPECT_EQ(state.gMusicState, MusicState::Play);
  movieSocket.arrive(bytes("MOVIEPLAYERSTATE|PAUSED$"));  // the next block counts
  state.sliderHeld = false;
  movieSocket.arrive(bytes("DVDMOVIETIMER|c|8|300$MOVIEPLAYERSTATE|STOP$"));
  EXPECT_EQ(Slider1.value(), 8);
  EXPECT_EQ(movieNews.heard, QStringList({u"paused"_s, u"stopped"_s}));
}

TEST_F(MovieLinkTest, AListenerThatVanishesStopsTheFrontEndOnce) {
  for (const bool breaks : {false, true}) {
    stand();
    movieSocket.arrive(bytes("MOVIEPLAYING|One$MOVIEPLAYERSTATE|PLAYING$MOVIETIMER|0:09|9$"));
    play();
    movies.connectAgain();  // silent, so tried again by the supervision: it may come back
    EXPECT_TRUE(movieNews.heard.isEmpty());
    breaks ? movieSocket.breakWith(u"reset"_s) : movieSocket.peerCloses();
    movies.connectAgain();
    movieSocket.breakWith(u"refused"_s);
    EXPECT_EQ(movieNews.heard, QStringList{u"stopped"_s});
    EXPECT_EQ(state.gMusicState, MusicState::Stop);
    EXPECT_EQ(state.gSongPlayingTitle + caption("TxtTime"), u"0:09"_s);
    EXPECT_EQ(Slider1.value(), 0);
  }
}

// Music and movies share the status line, the slider and the transport.
TEST_F(MovieLinkTest, ReportsLeaveTheControlsOfAnotherPlayerAlone) {
  bool moviesShow = false;
  movies.shows = [&] { return moviesShow; };
  music.shows = [&] { return !moviesShow; };
  music.ConnectionMP3Connect();
  socket.stand();
  stand();
  socket.arrive(bytes("MUSICDURATION|100$SONGPLAYING|Song$MEDIAPLAYERSTATE|2$MUSICTIMER|0:05|5$"));
  movieSocket.arrive(
      bytes("MOVIEDURATION|200$MOVIEPLAYING|Film$MOVIEPLAYERSTATE|PLAYING$"
            "MOVIEPLAYERSTATE|STOP$PAUSETOPLAY$MOVIETIMER|0:09|9$MOVIEERROR|x$"));
  EXPECT_EQ(caption("lblCurrentPlay"), u"Playing: Song"_s);
  EXPECT_EQ(Slider1.maximum() + Slider1.value(), 105);
  EXPECT_EQ(state.gMusicState, MusicState::Play);
  EXPECT_TRUE(movieNews.heard.isEmpty());

  // The song has ended: what the Listener plays is taken up.
  state.gMusicState = MusicState::Stop;
  moviesShow = true;
  movieSocket.arrive(bytes("MOVIEPLAYING|Film$MOVIETIMER|0:10|10$"));
  EXPECT_EQ(movieNews.heard.mid(0, 2), QStringList({u"plays"_s, u"titled Film"_s}));
  EXPECT_EQ(Slider1.value(), 10);
  socket.arrive(
      bytes("MUSICDURATION|300$SONGPLAYING|Song$MUSICTIMER|0:50|50$PAUSETOPLAY$"
            "MEDIAPLAYERSTATE|1$VOLUME|1$"));
  socket.peerCloses();
  EXPECT_EQ(caption("lblCurrentPlay"), u"Playing: Film"_s);
  EXPECT_EQ(Slider1.value(), 10);
  EXPECT_EQ(state.gMusicState, MusicState::Play);
  EXPECT_EQ(state.gPlayMode, PlayMode::Stopped);
  EXPECT_TRUE(news.heard.isEmpty());
}

TEST_F(MovieLinkTest, SupervisionShowsTheLinkOnTheMoviesPageAndFollowsIt) {
  setting("LinkSupervision=YES");
  Screen screen;
  FakeWinsock connectionML;
  MasterListener master{
      {state, settings, screen, messages, logger, system.pump, system.clock, connectionML}};
  Palette palette{settings};
  LinkSupervision links(form, {state, settings, palette, system.clock, master, music, movies});
  Frame& frame = control<Frame>("framLink");
  control<Image>("imgTabs", 1).tag = u"1"_s;
  links.look();
  EXPECT_EQ(movieSocket.connects, 1);
  Label& label = control<Label>("lblLink", 2);
  Button& again = control<Button>("cmdLink");
  EXPECT_EQ(label.caption(), u"○ Movies: connecting"_s);
  EXPECT_TRUE(frame.visible() && label.visible() && again.visible());
  EXPECT_TRUE(apart(label.rect(), again.rect()));
  EXPECT_TRUE(apart(frame.rect(), control<Image>("lblMovieType", 2).rect()));
  EXPECT_LE(again.rect().bottom(), frame.rect().height);

  movieSocket.stand();
  EXPECT_EQ(label.caption(), u"● Movies"_s);
  EXPECT_FALSE(again.visible());
  play();
  links.look();
  system.clock.advance(7000);
  links.look();  // a movie plays, and nothing has come of it
  EXPECT_EQ(label.caption(), u"○ Movies: it does not answer"_s);

  movieSocket.breakWith(u"refused"_s);
  state.gMovieListenerName = u"Cabin"_s;
  const ListenerEntry moved{u"Cabin"_s, u"10.0.0.4"_s, u"4003"_s, u"MOVIES"_s};
  links.listHeard({{u"Cabin"_s, u"10.0.0.9"_s, u"1"_s, u"MUSIC"_s}, moved}, false);
  EXPECT_EQ(movieSocket.RemoteHost, u"10.0.0.4"_s);
  EXPECT_EQ(movieSocket.RemotePort, 4003);

  state.gMovieListener = false;
  links.look();
  EXPECT_FALSE(frame.visible());
}

}  // namespace
}  // namespace korvane
