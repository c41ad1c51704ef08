#include "movies/movie_directories.h"
#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class Movies : public CabinTest {
 protected:
  // Starts with two movies in a directory, and on their page.
  void open(const QByteArray& startup = {}, const QByteArray& movies = {}) {
    begin(startup, movies);
    press(u"imgTabs"_s, kMoviesTab);
  }
  void begin(const QByteArray& startup, const QByteArray& movies) {
    tern = home.put(u"Films/The Tern.avi"_s, "x");
    home.put(u"Films/Alder.mpg"_s, "x");
    home.put(u"Films/notes.txt"_s, "x");
    setting(startup + "[Movies]\nMDirectory=" + home.path().toUtf8() + "/Films\n" + movies);
    start();
  }
  void discs() {
    home.put(u"Discs/Harbour/VIDEO_TS/VIDEO_TS.IFO"_s, "x");
    home.put(u"Discs/Estuary/VIDEO_TS/VIDEO_TS.IFO"_s, "x");
  }
  Grid& list() { return dynamic_cast<Grid&>(control(u"MovieList"_s)); }
  QStringList names() { return column(list(), 1); }
  void playRow(int row) {
    list().SetActiveCell(1, row);
    EXPECT_TRUE(form().fire(list(), {Event::DblClick, 1, row}));
    system().pump.settle();
  }
  void transport(TransportButton button) { press(u"cmdControls"_s, static_cast<int>(button)); }
  void tick() { fire(u"movieTimer"_s, Event::Tick); }
  PlayMode mode() {
    for (int i : {1, 2, 3})
      if (picture(u"cmdControls"_s, i).endsWith(u'b'))
        return i == 1 ? PlayMode::Playing : i == 2 ? PlayMode::Paused : PlayMode::Stopped;
    return PlayMode::Stopped;
  }
  void send(const QByteArray& records) {
    QByteArray bytes = records;
    sockets.at(1)->arrive(bytes.replace('|', '\0').replace('$', '\1'));
    system().pump.settle();
  }
  QByteArray sent() {  // to the Listener
    QByteArray all = sockets.at(1)->sent.join();
    return all.replace('\0', '|').replace('\1', '$');
  }
  FakeVideoPlayer& video() { return system().video; }
  FakeDvdPlayer& dvd() { return system().dvd; }

  QString tern;
};

using enum TransportButton;

TEST(MovieNames, AreKnownByWhatStandsBehindTheirFirstDot) {
  const struct {
    QString name, kinds;
    bool movie;
  } table[] = {{u"a.avi"_s, {}, true},
               {u"a.MoV"_s, {}, true},
               {u"a.mp"_s, {}, true},
               {u"a.b.avi"_s, {}, false},
               {u"a.b.avi"_s, u"AVI"_s, true},
               {u"a.mkv"_s, {}, false},
               {u"a.mkv"_s, u"MP4 MKV"_s, true},
               {u"a."_s, u"MKV"_s, false},
               {u"mkv"_s, u"MKV"_s, false},
               {u"a.mkv.part"_s, u"MKV"_s, false}};
  for (const auto& [name, kinds, movie] : table)
    EXPECT_EQ(isMovieName(name, kinds), movie) << name.toStdString();
}

TEST_F(Movies, AMovieIsPlayedPausedAndComesToItsEnd) {
  home.put(u"ADDS/ad1.jpg"_s, "x");
  open("ADDSON=YES\n");
  EXPECT_EQ(names(), (QStringList{u"Alder.mpg"_s, u"The Tern.avi"_s}));
  playRow(2);
  EXPECT_EQ(video().calls, (QStringList{u"open "_s + tern, u"play"_s}));
  EXPECT_TRUE(shown(u"MoviePic"_s) && !shown(u"MovieList"_s));
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Playing  movie The Tern.avi"_s);
  EXPECT_EQ(slider().maximum(), 1) << "the length is not known";
  EXPECT_FALSE(system().screenPower.screenSaverActive);
  EXPECT_FALSE(control(u"AddTimer"_s).enabled());
  video().tellDuration(90);
  video().PositionValue = 30;
  tick();
  EXPECT_EQ(slider().value(), 30);
  EXPECT_EQ(slider().maximum(), 90);

  transport(Pause);
  EXPECT_EQ(mode(), PlayMode::Paused);
  EXPECT_TRUE(system().screenPower.screenSaverActive);
  transport(Play);
  EXPECT_EQ(video().state(), VideoPlayer::Playing);
  press(u"MoviePic"_s);  // which going on has laid over the whole screen
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_EQ(video().state(), VideoPlayer::Paused) << "its picture is gone";
  press(u"imgTabs"_s, kMoviesTab);
  EXPECT_TRUE(shown(u"MoviePic"_s));
  transport(Play);

  video().PositionValue = 90;  // and the end is never reported
  tick();
  EXPECT_EQ(mode(), PlayMode::Stopped);
  EXPECT_EQ(video().state(), VideoPlayer::Closed);
  EXPECT_TRUE(shown(u"MovieList"_s) && !shown(u"MoviePic"_s));
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
  EXPECT_EQ(control(u"MoviePic"_s).design, (Rect{136, 8, 814, 560})) << "back from the full screen";
  EXPECT_TRUE(control(u"AddTimer"_s).enabled());
}

TEST_F(Movies, WhatCannotBePlayedIsSaidAndTheListComesBack) {
  open();
  playRow(1);
  answer(u" Unable to play that movie \nAlder.mpg is no movie"_s);
  video().fail(u"Alder.mpg is no movie"_s);
  system().pump.settle();
  EXPECT_TRUE(host->allDone());
  EXPECT_TRUE(shown(u"MovieList"_s));
  EXPECT_EQ(mode(), PlayMode::Stopped);
  playRow(2);
  EXPECT_EQ(video().calls.last(), u"play"_s) << "the next one plays";
  EXPECT_EQ(mode(), PlayMode::Playing);
}

TEST_F(Movies, TwoNeverSoundTogether) {
  givenDays();
  open("LOCALLISTENER=1\nFollowSound=YES\n");
  openAlbum(1, 1);
  CabinTest::playRow(1, 1);
  press(u"imgTabs"_s, kMoviesTab);
  playRow(1);
  EXPECT_EQ(player.playState(), MediaPlayer::Stopped);
  EXPECT_EQ(mode(), PlayMode::Playing);
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Playing  movie Alder.mpg"_s);
  press(u"imgTabs"_s, kMusicTab);
  transport(Play);
  EXPECT_EQ(video().state(), VideoPlayer::Closed) << "nor goes on without its picture";
  EXPECT_EQ(player.playState(), MediaPlayer::Playing);
  transport(Stop);
  press(u"imgTabs"_s, kMoviesTab);
  playRow(1);
  openAlbum(1, 1);
  CabinTest::playRow(1, 2);
  EXPECT_EQ(video().state(), VideoPlayer::Closed);
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Playing: 002-Noon"_s);
  EXPECT_EQ(mode(), PlayMode::Playing);
}

TEST_F(Movies, ADirectoryAsksForItsPasswordOnce) {
  home.put(u"Shut/Secret.avi"_s, "x");
  const QByteArray shut =
      "MDirectory1=Shut\nMDirectory2=" + home.path().toUtf8() + "/Gone\n[PW]\nPW7=4711\nPW8=8\n";
  begin({}, shut);
  typed(u"0815"_s, true);
  press(u"imgTabs"_s, kMoviesTab);
  EXPECT_TRUE(host->allDone()) << "and nobody asks for a directory that is not there";
  EXPECT_EQ(names(), (QStringList{u"Alder.mpg"_s, u"The Tern.avi"_s}));
  typed(u"4711"_s, true);
  for (int i = 0; i < 2; ++i) press(u"imgTabs"_s, kMoviesTab);
  EXPECT_TRUE(host->allDone());
  EXPECT_EQ(names().size(), 3);
}

TEST_F(Movies, APageWhoseDiskDoesNotAnswerIsThereAndFillsLater) {
  system().pump.holdBackground = true;
  open();
  EXPECT_EQ(list().maxRows(), 0);
  EXPECT_EQ(list().emptyText(), u"Looking for movies..."_s);
  press(u"imgTabs"_s, kMainTab);
  press(u"imgTabs"_s, kMoviesTab);
  system().pump.runBackground();
  system().pump.settle();
  EXPECT_EQ(names().size(), 2);
  list().SetActiveCell(1, 2);
  home.put(u"Films/Aardvark.mov"_s, "x");
  press(u"imgTabs"_s, kMoviesTab);
  system().pump.runBackground();
  system().pump.settle();
  EXPECT_EQ(names().size(), 3);
  EXPECT_EQ(list().row(), 3) << "the active movie stays so";
}

TEST_F(Movies, ADiscIsPlayedByItsMenusAndChapters) {
  discs();
  open({}, "DVD0=" + home.path().toUtf8() + "/Discs\n");
  press(u"lblMovieType"_s, 1);
  EXPECT_TRUE(home.get(u"user.ini"_s).contains("MOVIETYPE=DVD"));
  EXPECT_TRUE(shown(u"lblMovieNote"_s) && !shown(u"MovieList"_s));
  EXPECT_EQ(control(u"cmdControls"_s, 0).toolTip(), u"Previous Chapter"_s);
  transport(Play);
  EXPECT_EQ(dvd().calls, (QStringList{u"ActivateButton"_s, u"Play"_s}));
  EXPECT_TRUE(shown(u"MSWebDVD1"_s));
  press(u"cmdMenuforDVD"_s);
  transport(Next);
  transport(Previous);
  EXPECT_EQ(dvd().calls.mid(2),
            (QStringList{u"ShowMenu 3"_s, u"PlayNextChapter"_s, u"PlayPrevChapter"_s}));
  dvd().domain = DvdPlayer::Title;
  dvd().chapter = 2;
  dvd().chapterCount = 3;
  dvd().time = 65;
  dvd().total = 3700;
  dvd().tell(DvdPlayer::CurrentTimeChange);
  EXPECT_EQ(slider().text(), u"Chapter 2 of 3  Time:00:01:05 Total:01:01:40"_s);
  EXPECT_EQ(slider().value(), 65);
  dvd().time = 9999;
  dvd().tell(DvdPlayer::CurrentTimeChange);
  EXPECT_EQ(slider().value(), 3700) << "no further than its length";
  dvd().tell(DvdPlayer::DiscEjected);
  system().pump.settle();
  EXPECT_EQ(mode(), PlayMode::Stopped);
  dvd().tell(DvdPlayer::DiscInserted);
  system().pump.settle();
  EXPECT_EQ(mode(), PlayMode::Playing);
  press(u"imgTabs"_s, kMainTab);
  EXPECT_EQ(dvd().state(), DvdPlayer::Paused);
  press(u"imgTabs"_s, kMoviesTab);
  EXPECT_TRUE(shown(u"MSWebDVD1"_s)) << "where it was paused";
  answer(u"Stop what plays first"_s);
  press(u"lblMovieType"_s, 2);
  transport(Stop);

  press(u"lblMovieType"_s, 2);
  EXPECT_EQ(names(), (QStringList{u"Estuary"_s, u"Harbour"_s}));
  playRow(2);
  EXPECT_EQ(dvd().DVDDirectory(), home.path() + u"/Discs/Harbour/video_ts"_s);
  answer(u"the disc is scratched"_s);
  dvd().fail(u"the disc is scratched"_s);
  system().pump.settle();
  EXPECT_TRUE(host->allDone());
  EXPECT_TRUE(shown(u"MovieList"_s));
  press(u"lblMovieType"_s, 1);
  EXPECT_EQ(dvd().DVDDirectory(), QString()) << "the drive again";
}

TEST_F(Movies, TheFirstTouchEndsTheFullScreen) {
  open();
  playRow(1);
  press(u"cmdMovieFullScreen"_s);
  EXPECT_EQ(control(u"MoviePic"_s).rect().width, form().width());
  press(u"MoviePic"_s);
  EXPECT_EQ(control(u"MoviePic"_s).design.width, 814);
  EXPECT_FALSE(shown(u"framMovie"_s));
  press(u"MoviePic"_s);
  EXPECT_EQ(control(u"MoviePic"_s).design.width, 814) << "in the page it does nothing";
}

TEST_F(Movies, ControlsComeWithATouchAndALockKeepsTouchesOut) {
  open({}, "MovieControls=YES\nMovieFit=WHOLE\n");
  playRow(1);
  video().tellDuration(100);
  video().sounds = {{1, u"English"_s}, {2, u"French"_s}};
  video().sound = 1;
  video().PositionValue = 50;
  tick();
  press(u"MoviePic"_s);
  EXPECT_EQ(control(u"MoviePic"_s).rect().width, form().width());
  EXPECT_FALSE(shown(u"framMovie"_s));
  press(u"MoviePic"_s);
  EXPECT_TRUE(shown(u"framMovie"_s));
  EXPECT_FALSE(shown(u"cmdMovie"_s, 3)) << "a file has no chapters";
  EXPECT_FALSE(shown(u"cmdMovie"_s, 6)) << "nor this one subtitles";
  for (const int button : {2, 1, 5, 8, 0}) press(u"cmdMovie"_s, button);
  EXPECT_EQ(video().calls.mid(2), (QStringList{u"seek 60"_s, u"seek 40"_s, u"pause"_s}));
  EXPECT_EQ(video().sound, 2);
  EXPECT_EQ(dynamic_cast<Surface&>(control(u"MoviePic"_s)).fit(), VideoFit::Filled);
  EXPECT_TRUE(home.get(u"Morvanta.INI"_s).contains("MovieFit=FILLED"));
  EXPECT_EQ(picture(u"cmdMovie"_s, 0), u"bigplay"_s);
  fire(u"MovieControlsTimer"_s, Event::Tick);
  EXPECT_FALSE(shown(u"framMovie"_s));

  press(u"MoviePic"_s);
  press(u"cmdMovie"_s, 9);
  press(u"MoviePic"_s);
  EXPECT_TRUE(shown(u"cmdMovieLocked"_s) && !shown(u"framMovie"_s));
  fire(u"cmdMovieLocked"_s, Event::Press);
  fire(u"cmdMovieLocked"_s, Event::Release);
  EXPECT_FALSE(control(u"MovieHoldTimer"_s).enabled()) << "let go too soon";
  fire(u"cmdMovieLocked"_s, Event::Press);
  fire(u"MovieHoldTimer"_s, Event::Tick);
  EXPECT_TRUE(shown(u"framMovie"_s) && !shown(u"cmdMovieLocked"_s));
  press(u"cmdMovie"_s, 10);
  EXPECT_EQ(control(u"MoviePic"_s).design.width, 814);
}

// In full screen the disc's own buttons are pressed while its menu shows, and only then.
TEST_F(Movies, AFingerMeansTheDiscWhileItsMenuShows) {
  open({}, "MovieControls=YES\n");
  press(u"lblMovieType"_s, 1);
  transport(Play);
  auto& picture = dynamic_cast<Surface&>(control(u"MSWebDVD1"_s));
  const auto domain = [&](DvdPlayer::Domain now) {
    dvd().domain = now;
    dvd().tell(DvdPlayer::DomainChange);
  };
  domain(DvdPlayer::Title);
  EXPECT_TRUE(picture.drawerPressed()) << "in the page";
  press(u"cmdMovieFullScreen"_s);
  EXPECT_FALSE(picture.drawerPressed());
  domain(DvdPlayer::Menu);
  EXPECT_TRUE(picture.drawerPressed() && shown(u"cmdMovieLeave"_s));
  domain(DvdPlayer::Title);
  EXPECT_FALSE(picture.drawerPressed() || shown(u"cmdMovieLeave"_s));
  press(u"MSWebDVD1"_s);
  EXPECT_TRUE(shown(u"cmdMovie"_s, 7));
  press(u"cmdMovie"_s, 7);
  EXPECT_EQ(dvd().calls.last(), u"ShowMenu 3"_s);
}

TEST_F(Movies, AMovieGoesOnWhereItWasLeft) {
  const QByteArray keys = "MovieResume=YES\n";
  open({}, keys);
  playRow(2);
  video().tellDuration(100);
  video().PositionValue = 42;
  tick();
  console().desk.startup.closeit();  // the program ends while it plays
  open({}, keys);
  EXPECT_EQ(list().cell(4, 2), u"42 %"_s);
  video().calls.clear();
  playRow(2);
  EXPECT_FALSE(shown(u"framMovieSays"_s));
  video().tellDuration(100);
  EXPECT_EQ(video().calls.last(), u"seek 42"_s);
  EXPECT_TRUE(shown(u"framMovieSays"_s));
  EXPECT_EQ(caption(u"lblMovieSays"_s), u"Goes on at 0:42"_s);
  press(u"cmdMovieSays"_s);
  EXPECT_EQ(video().calls.last(), u"seek 0"_s);
  EXPECT_FALSE(shown(u"framMovieSays"_s));
  video().end();
  system().pump.settle();
  EXPECT_EQ(list().cell(4, 2), QString()) << "it was seen to its end";
}

TEST_F(Movies, InTheCabinTheListenerPlays) {
  open("LocalServer=1\nFollowSound=YES\nHomePanel=YES\n", "MovieListener=1\n");
  AppState& state = console().desk.state;
  state.gMovieListenerIP = u"10.0.0.3"_s;
  state.gMovieListenerPort = u"7411"_s;
  press(u"imgTabs"_s, kMoviesTab);
  sockets.at(1)->stand();
  system().pump.settle();
  playRow(2);
  EXPECT_TRUE(video().calls.isEmpty());
  EXPECT_TRUE(shown(u"MovieList"_s));
  EXPECT_TRUE(sent().contains("MOVIE|PLAY|" + tern.toUtf8() + "|The Tern.avi$"))
      << sent().toStdString();
  send("MOVIEDURATION|90$MOVIETIMER|0:07|7$");
  EXPECT_EQ(slider().value(), 7);
  send("MOVIEPLAYERSTATE|PAUSED$");
  EXPECT_EQ(mode(), PlayMode::Paused);
  transport(Play);
  EXPECT_EQ(mode(), PlayMode::Playing);
  press(u"cmdMovieFullScreen"_s);
  EXPECT_TRUE(sent().endsWith("MOVIE|FULLSCREEN$"));
  press(u"imgTabs"_s, kMainTab);
  EXPECT_FALSE(sent().endsWith("MOVIE|PAUSE$")) << "it goes on in the cabin";
  send("MOVIEPLAYING|The Tern.avi$MOVIETIMER|0:08|8$");
  EXPECT_EQ(caption(u"lblHomeTitle"_s), u"The Tern.avi"_s);
  press(u"cmdHome"_s, 1);
  EXPECT_TRUE(sent().endsWith("MOVIE|PAUSE$"));
  press(u"imgTabs"_s, kMoviesTab);
  transport(Play);
  answer(u"the file is gone"_s);
  for (int i = 0; i < 20; ++i) send("MOVIEERROR|the file is gone$");
  EXPECT_TRUE(host->allDone());
  EXPECT_EQ(mode(), PlayMode::Stopped);
  sockets.at(1)->peerCloses();
  system().pump.settle();
  playRow(1);
  EXPECT_EQ(mode(), PlayMode::Stopped) << "nobody plays it";
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Movie Listener not connected"_s);
}

TEST_F(Movies, AGuestOfTheLockedJukeboxPlaysNoMovie) {
  givenDays();
  begin("LOCALLISTENER=1\nJukeboxLock=YES\nSetup=4711\nShowMute=1\n", {});
  openAlbum(1, 1);
  press(u"optMode"_s, 1);
  CabinTest::playRow(1, 1);
  press(u"imgTabs"_s, kMoviesTab);
  const QString song = playing();
  typed({}, true);
  playRow(1);
  typed({}, true);
  press(u"mute"_s);
  EXPECT_TRUE(host->allDone());
  EXPECT_TRUE(video().calls.isEmpty());
  EXPECT_EQ(player.playState(), MediaPlayer::Playing);
  typed(u"4711"_s, true);
  playRow(1);
  EXPECT_EQ(video().state(), VideoPlayer::Playing);
  EXPECT_EQ(player.playState(), MediaPlayer::Stopped) << song.toStdString();
}

TEST_F(Movies, TheCeilingAndTheMuteOfTheMoviesHoldFromTheirPage) {
  system().mixer.top = 1000;
  begin("LOCALLISTENER=1\nDisplayVolume=1\nShowMute=1\nVolumeMax=60\n", {});
  press(u"imgTabs"_s, kMoviesTab);
  playRow(1);
  dynamic_cast<Slider&>(control(u"scrollVolume"_s)).moveTo(2400);
  EXPECT_EQ(system().mixer.value, 600);
  press(u"mute"_s);
  EXPECT_EQ(video().calls.last(), u"mute"_s);
  transport(Stop);
  playRow(2);
  EXPECT_FALSE(video().calls.contains(u"unmute"_s)) << "the next one is as silent";
  system().mixer.top = 0;
  system().mixer.outside();
  dynamic_cast<Slider&>(control(u"scrollVolume"_s)).moveTo(2400);
  EXPECT_EQ(video().volume(), -444) << "60 % of the player's own, in 1/100 dB";
}

// What happens elsewhere while a movie fills the screen leaves it there.
TEST_F(Movies, TheFullScreenStaysUnderWhatHappensElsewhere) {
  givenDays();
  open("LOCALLISTENER=1\nLocalServer=1\n", "MovieControls=YES\nMovieListener=0\n");
  playRow(1);
  press(u"cmdMovieFullScreen"_s);
  const auto full = [this] {
    return shown(u"MoviePic"_s) && control(u"MoviePic"_s).rect().width == form().width() &&
           video().state() == VideoPlayer::Playing;
  };
  const std::pair<const char*, std::function<void()>> events[] = {
      {"a scan", [&] { console().library.songsChanged(); }},
      {"a message",
       [&] {
         answer(u"The cabin lights are out"_s);
         console().desk.messages.say(u"The cabin lights are out"_s);
       }},
      {"a record of the Listener of music",
       [&] {
         sockets.at(0)->stand();
         sockets.at(0)->arrive(
             "MP3TIMER\0"
             "0:07\0"
             "7\1");
       }},
      {"a list that comes late", [&] { console().movies.source.settleRole(); }},
  };
  for (const auto& [what, happens] : events) {
    happens();
    system().pump.settle();
    EXPECT_TRUE(full()) << what;
  }
  EXPECT_FALSE(shown(u"MovieList"_s));
  press(u"MoviePic"_s);
  EXPECT_TRUE(shown(u"framMovie"_s));
  console().desk.startup.Form_Load();  // as another theme does
  EXPECT_EQ(video().state(), VideoPlayer::Closed);
  EXPECT_TRUE(console().desk.tabs.open(kMainTab) && !shown(u"MoviePic"_s) &&
              !shown(u"framMovie"_s));
  EXPECT_EQ(control(u"MoviePic"_s).design.width, 814);
}

TEST_F(Movies, AListenerThatFloodsOrGoesLeavesThePageAlive) {
  open("LocalServer=1\n", "MovieListener=1\nMovieControls=YES\n");
  console().desk.state.gMovieListenerIP = u"10.0.0.3"_s;
  console().desk.state.gMovieListenerPort = u"7411"_s;
  press(u"imgTabs"_s, kMoviesTab);
  sockets.at(1)->stand();
  system().pump.settle();
  playRow(2);
  send("MOVIEDURATION|90$");
  slider().value = 30;
  fire(u"Slider1"_s, Event::Press);
  QByteArray flood;
  for (int i = 0; i < 2000; ++i)
    flood += "MOVIETIMER|9:99|" + QByteArray::number(i) + "$DVDMOVIETIMER|x|99999|10$";
  send(flood);
  EXPECT_EQ(slider().value(), 30) << "a finger holds it";
  fire(u"Slider1"_s, Event::Release);
  send("MOVIETIMER|9:99|4000$");
  EXPECT_LE(slider().value(), slider().maximum());
  press(u"cmdMovieFullScreen"_s);
  sockets.at(1)->peerCloses();
  system().pump.settle();
  EXPECT_EQ(mode(), PlayMode::Stopped);
  EXPECT_TRUE(shown(u"MovieList"_s));
  EXPECT_EQ(control(u"MovieList"_s).rect().width, 814);
}

}  // namespace
}  // namespace korvane
