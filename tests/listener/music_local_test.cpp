// The local role: a command in, calls of the player and what the form shows out.
#include "tests/listener/music_world.h"

namespace korvane {
namespace {

struct LocalMusicTest : MusicWorld {
  LocalMusicTest() {
    state.gLocalListener = true;
    system.files.put(u"/m/a.mp3"_s, "x");
    system.files.put(u"/m/b.mp3"_s, "x");
  }
  void play(const QString& path, const QString& title = u"Title"_s) {
    music.ConnectionMP3Send(u" music "_s, u" PLAY "_s, path, title);
  }
  void ask(const QString& command, const QString& argument = {}) {
    music.ConnectionMP3Send(u"MUSIC"_s, command, argument);
  }
  void playBroken(const QString& path) {
    play(path);
    player.fail(u"broken"_s);
    system.pump.settle();
  }
  void tickAt(double seconds) {
    player.CurrentPositionValue = seconds;
    form.fire(MusicTimer, {Event::Tick});
  }
};

TEST_F(LocalMusicTest, PlaysAFileOfAVolumeThatMoved) {
  system.files.mounted = {u"/media/b"_s};
  system.files.put(u"/media/b/Music/x.mp3"_s, "x");
  player.DurationValue = 125.9;
  play(u" D:\\Music\\x.mp3 "_s, u"\u4e2d\u6587 \u0394"_s);
  EXPECT_EQ(player.calls, QStringList({u"open /media/b/Music/x.mp3"_s, u"play"_s}));
  EXPECT_EQ(caption("lblDuration"), u"2:05"_s);
  EXPECT_EQ(Slider1.maximum(), 125.9);
  EXPECT_EQ(caption("lblCurrentPlay"), u"Playing: \u4e2d\u6587 \u0394"_s);
  EXPECT_TRUE(MusicTimer.enabled());
  EXPECT_EQ(state.gPlayMode, PlayMode::Playing);
  EXPECT_EQ(state.gSongPlayingTitle, u"\u4e2d\u6587 \u0394"_s);
  EXPECT_EQ(ini(u"GENERAL"_s, u"LASTSONGPLAYED"_s), u"/media/b/Music/x.mp3"_s);
  EXPECT_TRUE(socket.sent.isEmpty());

  tickAt(61.25);
  EXPECT_EQ(Slider1.value(), 61.25);
  EXPECT_EQ(Slider1.text(), u"Current= 1:01 -- Remaining= 1:04"_s);
  state.gMusicType = MusicSource::Cd;
  tickAt(70);
  EXPECT_EQ(Slider1.value(), 61.25) << "it is the CD's";
}

TEST_F(LocalMusicTest, PausesResumesSeeksMutesAndStops) {
  ask(u"PAUSE"_s);  // nothing plays
  EXPECT_TRUE(player.calls.isEmpty());
  play(u"/m/a.mp3"_s);
  player.calls.clear();
  ask(u"PAUSE"_s);
  EXPECT_FALSE(MusicTimer.enabled());
  ask(u"PLAY"_s);
  EXPECT_TRUE(MusicTimer.enabled());
  EXPECT_EQ(state.gPlayMode, PlayMode::Playing);
  EXPECT_EQ(picture("cmdControls", 1), u"Music/playb"_s);
  ask(u"CURRENTPOSITION"_s, u"12.5"_s);
  ask(u"CURRENTPOSITION"_s, u"soon"_s);
  ask(u"MUTE=TRUE"_s);
  ask(u"MUTE=FALSE"_s);
  ask(u"DANCE"_s);
  ask(u"STOP"_s);
  EXPECT_EQ(player.calls, QStringList({u"pause"_s, u"play"_s, u"seek 12.5"_s, u"mute"_s,
                                       u"unmute"_s, u"stop"_s}));
  EXPECT_EQ(news.heard, QStringList({u"paused"_s, u"stopped"_s}));
  EXPECT_FALSE(MusicTimer.enabled());
}

TEST_F(LocalMusicTest, StatusTellsWhatPlaysAndTheVolumeIfItIsShown) {
  ask(u"STATUS"_s);
  EXPECT_EQ(music.listenerMaxVolume, 0);
  settings.write(key::DisplayVolume, u"1"_s);
  ask(u"STATUS"_s);
  EXPECT_EQ(caption("lblCurrentPlay"), u""_s);
  EXPECT_TRUE(news.heard.isEmpty());  // already stopped

  play(u"/m/a.mp3"_s);
  system.mixer.open();
  system.mixer.value = system.mixer.top / 4;
  control<Label>("lblCurrentPlay").caption = u""_s;
  ask(u"STATUS"_s);
  EXPECT_EQ(caption("lblCurrentPlay"), u"Playing: Title"_s);
  EXPECT_EQ(caption("lblVolume"), u"Volume 25%"_s);
  ask(u"VOLUME"_s, QString::number(system.mixer.top / 2));
  EXPECT_EQ(system.mixer.value, system.mixer.top / 2);
  EXPECT_EQ(caption("lblVolume"), u"Volume 50%"_s);
}

TEST_F(LocalMusicTest, WithoutAMixerThePlayersOwnVolumeIsSet) {
  system.mixer.present = false;
  system.mixer.top = 0;
  for (const char* asked : {"65535", "6554", "0", "loud"})
    ask(u"VOLUME"_s, QString::fromLatin1(asked));
  EXPECT_EQ(player.calls, QStringList({u"volume 0"_s, u"volume -2000"_s, u"volume -10000"_s}));
}

TEST_F(LocalMusicTest, TheSongsOwnPictureIsShownOnTheMusicPageOnly) {
  coverImage = "image";
  play(u"/m/a.mp3"_s);
  EXPECT_FALSE(coverArt.visible());
  EXPECT_EQ(coverArt.tag(), u"TRUE"_s);
  musicPageOpen();
  play(u"/m/b.mp3"_s);
  EXPECT_TRUE(coverArt.visible());
  EXPECT_EQ(*coverArt.picture->bytes, "image");
  coverImage.clear();
  play(u"/m/a.mp3"_s);
  EXPECT_FALSE(coverArt.visible());
  EXPECT_EQ(coverArt.tag(), u"FALSE"_s);
}

TEST_F(LocalMusicTest, ASongThatCannotPlayIsSaidAndTheNextOneTaken) {
  player.errors[u"/m/b.mp3"_s] = u"Cannot play it"_s;
  musicPageOpen();
  coverImage = "image";
  play(u"/m/a.mp3"_s);
  play(u"/gone/x.mp3"_s);
  EXPECT_FALSE(coverArt.visible());
  EXPECT_EQ(ini(u"GENERAL"_s, u"LASTSONGPLAYED"_s), u"/m/a.mp3"_s);
  system.pump.settle();
  play(u"/m/b.mp3"_s);
  system.pump.settle();
  EXPECT_EQ(player.calls, QStringList({u"open /m/a.mp3"_s, u"play"_s, u"open /m/b.mp3"_s}));
  EXPECT_EQ(messages.texts, QStringList({u"File not found"_s, u"Cannot play it"_s}));
  EXPECT_EQ(news.heard, QStringList({u"failed 1"_s, u"failed 2"_s}));
}

// The transport takes song after song; while the first box is still up all of them fail.
TEST_F(LocalMusicTest, AListOfBrokenSongsEndsWithTwoBoxes) {
  constexpr int kSongs = 5000;
  int asked = 1;
  news.onFailed = [&](int inARow) {
    EXPECT_EQ(inARow, asked);
    if (inARow < kSongs)
      play(u"/gone/%1.mp3"_s.arg(++asked));
    else
      ask(u"STOP"_s);
  };
  messages.onShow = [&] { system.pump.settle(); };
  play(u"/gone/1.mp3"_s);
  system.pump.settle();
  EXPECT_EQ(asked, kSongs);
  EXPECT_EQ(messages.texts, QStringList({u"File not found"_s, u"File not found"_s}));
  EXPECT_EQ(player.calls, QStringList{u"stop"_s});
}

TEST_F(LocalMusicTest, FailuresAreCountedAnewOnceASongHasSounded) {
  playBroken(u"/m/a.mp3"_s);
  playBroken(u"/m/b.mp3"_s);
  play(u"/m/a.mp3"_s);
  tickAt(1);
  player.end();
  playBroken(u"/m/b.mp3"_s);
  EXPECT_EQ(news.heard, QStringList({u"failed 1"_s, u"failed 2"_s, u"end"_s, u"failed 1"_s}));
}

TEST_F(LocalMusicTest, AFailureIsForgottenOnceSomethingElseWasAsked) {
  system.pump.duringYield = [this] { ask(u"STOP"_s); };
  play(u"/gone/x.mp3"_s);
  system.pump.settle();
  EXPECT_EQ(messages.texts, QStringList{u"File not found"_s});
  EXPECT_TRUE(news.heard.isEmpty());
}

TEST_F(LocalMusicTest, DeliveriesOfAForgottenListenerChangeNothing) {
  play(u"/m/a.mp3"_s);
  socket.setState(Winsock::Connected);
  socket.arrive(bytes("SONGPLAYING|Other$MEDIAPLAYERSTATE|0$"));
  socket.peerCloses();
  EXPECT_EQ(caption("lblCurrentPlay"), u"Playing: Title"_s);
  EXPECT_EQ(state.gPlayMode, PlayMode::Playing);
  EXPECT_TRUE(news.heard.isEmpty());
}

}  // namespace
}  // namespace korvane
