// The Movie Listener's side of the wire, byte for byte: with one console, with several, and beside
// the music of the same Listener.
#include "services/listener/movie_service.h"

#include <QFileInfo>

#include "platform/files/disk_file_system.h"
#include "services/listener/music_service.h"
#include "tests/fakes/fake_media_player.h"
#include "tests/fakes/fake_movie_screen.h"
#include "tests/fakes/temporary_home.h"
#include "tests/services/service_world.h"

namespace korvane {
namespace {

struct MovieServiceTest : ServiceWorld {
  MovieServiceTest() {
    system.mixer.top = 100;
    system.mixer.opened = true;
    system.mixer.value = 40;
    for (const char* file : {"Tour/VIDEO_TS/VIDEO_TS.IFO", "Empty/VIDEO_TS/readme.txt", "a.mp3"})
      root.put(QString::fromLatin1(file), "x");
    video.calls.clear();
  }
  void expect(Peer peer, const QByteArray& command, const QByteArray& answer) {
    say(peer, command);
    EXPECT_EQ(heard(peer), answer) << command.constData();
  }

  TemporaryHome root;
  const QString film = QFileInfo(root.put(u"a.avi"_s, "x")).canonicalFilePath();
  const QString top = QFileInfo(root.path()).canonicalFilePath();
  const MediaRoots roots{{root.path()}, {}};
  FakeMediaPlayer player;
  FakeVideoPlayer video;
  FakeDvdPlayer dvd;
  FakeMovieScreen screen;
  FakeTicker musicTimer, movieTimer;
  DiskFileSystem files;
  RecordServer server{{tcp, doorTicker, turns, system.clock, log, allow, limits}};
  ListenerService listener{{server, system.mixer}};
  MovieService movies{
      {listener, files, video, dvd, screen, movieTimer, log, {roots, u"/dev/sr1"_s, 1000}}};
};

const QByteArray kBegun =
    "MOVIEDURATION|0$MOVIEPLAYING|A$MOVIEPLAYERSTATE|PLAYING$MOVIESCREEN|NORMAL$";

TEST_F(MovieServiceTest, EveryCommandOfAFileAndItsAnswers) {
  const Peer peer = tcp.join();
  EXPECT_TRUE(screen.large);
  expect(peer, "MOVIE|STATUS$", "MOVIEPLAYERSTATE|STOP$MAXVOLUME|100$VOLUME|40$");
  expect(peer, "MOVIE|PLAY$", "MOVIEPLAYERSTATE|STOP$");
  expect(peer, "MOVIE|PAUSE$MOVIE|CURRENTPOSITION|3$DVDP|NEXTCHAPTER$DVDP|ENTER$", "");
  expect(peer, "MOVIE|STOP$", "MOVIEPLAYERSTATE|STOP$");
  expect(peer, "MOVIE|PLAY|/nowhere/b.avi|B$", "MOVIEERROR|File not found$");
  expect(peer, "MOVIE|PLAY|/films/a.avi.txt|B$", "MOVIEERROR|File not found$");
  expect(peer, "MOVIE|PLAY|Z:\\FILMS\\a.AVI|A$", kBegun);
  EXPECT_EQ(screen.shows, u"frames"_s);
  video.tellDuration(200);
  EXPECT_EQ(heard(peer), "MOVIEDURATION|200$");
  video.PositionValue = 61.25;
  movieTimer.fire();
  EXPECT_EQ(heard(peer), "MOVIETIMER|Current= 1:01 -- Remaining= 2:18|61.25$");
  expect(peer, "MOVIE|DURATION$", "MOVIEDURATION|200$");
  expect(peer, "MOVIE|CURRENTPOSITION|12,5$MOVIE|CURRENTPOSITION|1e9$MOVIE|CURRENTPOSITION|-1$",
         "");
  expect(peer, "MOVIE|MUTE=TRUE$MOVIE|MUTE=FALSE$", "");
  expect(peer, "MOVIE|VOLUME|30$MOVIE|VOLUME|much$", "VOLUME|30$VOLUME|much$");
  expect(peer, "MOVIE|NORMALSCREEN$", "MOVIESCREEN|FULL$");
  EXPECT_FALSE(screen.large);
  expect(peer, "MOVIE|FULLSCREEN$", "MOVIESCREEN|NORMAL$");
  expect(peer, "MOVIE|PAUSE$", "MOVIEPLAYERSTATE|PAUSED$");
  expect(peer, "MOVIE|CURRENTPOSITION|7$", "MOVIETIMER|Current= 0:07 -- Remaining= 3:13|7$");
  expect(peer, "MOVIE|STATUS$",
         "MOVIEDURATION|200$MOVIEPLAYING|A$MOVIEPLAYERSTATE|PAUSED$MOVIESCREEN|NORMAL$"
         "MAXVOLUME|100$VOLUME|30$");
  expect(peer, "MOVIE|PLAY$", "PAUSETOPLAY$MOVIEPLAYERSTATE|PLAYING$");
  expect(peer, "MOVIE|STOP$", "MOVIEPLAYERSTATE|STOP$");
  expect(peer, "MOVIE$OTHER|STATUS$$MOVIE|status$MOVIE|$", "");
  EXPECT_EQ(video.calls,
            QStringList({u"open "_s + film, u"play"_s, u"seek 12.5"_s, u"seek 200"_s, u"seek 0"_s,
                         u"mute"_s, u"unmute"_s, u"pause"_s, u"seek 7"_s, u"play"_s, u"close"_s}));
  EXPECT_EQ(screen.shows, u""_s);
  EXPECT_FALSE(movieTimer.running());
  EXPECT_EQ(system.mixer.value, 30);
}

TEST_F(MovieServiceTest, EveryCommandOfADisc) {
  const Peer peer = tcp.join();
  say(peer, "DVDP|PLAY$");
  EXPECT_EQ(heard(peer),
            "MOVIEDURATION|0$MOVIEPLAYING|DVD$MOVIEPLAYERSTATE|PLAYING$MOVIESCREEN|NORMAL$");
  EXPECT_EQ(screen.shows, u"disc"_s);
  EXPECT_EQ(dvd.window, 7u);
  movieTimer.fire();
  EXPECT_EQ(heard(peer), "DVDMOVIETIMER|DVD menu|0|0$") << "not silent in the menu";
  dvd.domain = DvdPlayer::Title;
  dvd.chapter = 2, dvd.chapterCount = 4, dvd.time = 61, dvd.total = 3725;
  dvd.tell(DvdPlayer::ChapterStart);
  EXPECT_EQ(heard(peer), "DVDMOVIETIMER|Chapter 2 of 4  Time:00:01:01 Total:01:02:05|61|3725$");
  dvd.calls.clear();
  expect(peer,
         "DVDP|ENTER$DVDP|UPPER$DVDP|RIGHT$DVDP|LOWER$DVDP|LEFT$DVDP|PREVCHAPTER$DVDP|NEXTCHAPTER$"
         "DVDP|CURRENTPOSITION|9$",
         "");
  EXPECT_EQ(dvd.calls, QStringList({u"ActivateButton"_s, u"SelectButton 0"_s, u"SelectButton 3"_s,
                                    u"SelectButton 1"_s, u"SelectButton 2"_s, u"PlayPrevChapter"_s,
                                    u"PlayNextChapter"_s, u"seek 9"_s}));
  expect(peer, "DVDP|PAUSE$DVDP|PLAY$",
         "MOVIEPLAYERSTATE|PAUSED$PAUSETOPLAY$MOVIEPLAYERSTATE|PLAYING$");
  dvd.tell(DvdPlayer::DiscEjected);
  EXPECT_EQ(heard(peer), "MOVIEPLAYERSTATE|STOP$");

  // A folder below a root that holds a disc plays as one, and a file takes its place.
  dvd.total = 0;
  for (const char* path : {"Z:\\Films\\Tour", "/Tour/video_ts", "/Tour/"}) {
    expect(peer, QByteArray("MOVIE|PLAY|") + path + "|A$", kBegun);
    EXPECT_EQ(dvd.DVDDirectory(), top + u"/Tour/VIDEO_TS"_s) << path;
    say(peer, "MOVIE|STOP$"), heard(peer);
  }
  expect(peer, "MOVIE|PLAY|/Empty|A$", "MOVIEERROR|File not found$");
  say(peer, "MOVIE|PLAY|/Tour|A$MOVIE|PLAY|a.avi|A$");
  EXPECT_EQ(dvd.state(), DvdPlayer::Stopped);
  EXPECT_EQ(screen.shows, u"frames"_s);
}

TEST_F(MovieServiceTest, AllConsolesHearOfAChangeAndOneOfAFailure) {
  const Peer one = tcp.join(), two = tcp.join();
  say(one, "MOVIE|PLAY|a.avi|A$");
  heard(one);
  EXPECT_EQ(heard(two), kBegun + "PAUSETOPLAY$");
  say(two, "MOVIE|PAUSE$MOVIE|VOLUME|9$MOVIE|STATUS$MOVIE|PLAY|/x.avi|X$");
  EXPECT_EQ(heard(one), "MOVIEPLAYERSTATE|PAUSED$VOLUME|9$");
  say(two, "MOVIE|PLAY|a.avi|" + QByteArray(8000, 'T') + '$');
  EXPECT_LE(heard(one).size(), 1200) << "nobody fills another's queue";
  heard(two);
  video.fail(u"Cannot play %1: it is damaged."_s.arg(film));
  EXPECT_EQ(heard(two), "MOVIEERROR|Cannot play a.avi: it is damaged.$MOVIEPLAYERSTATE|STOP$");
  EXPECT_EQ(heard(one), "MOVIEPLAYERSTATE|STOP$");
  EXPECT_TRUE(log.text.contains(film.toUtf8())) << "the owner reads all of it";

  say(two, "MOVIE|PLAY|a.avi|B$");
  heard(one), heard(two);
  say(one, "MOVIE|STOP$");  // since it heard of the failure
  EXPECT_EQ(heard(one), "MOVIEPLAYERSTATE|PLAYING$");
  say(one, "MOVIE|STOP$");  // a finger
  EXPECT_EQ(heard(two), "MOVIEPLAYERSTATE|STOP$");

  say(one, "MOVIE|PLAY|a.avi|A$");
  tcp.leave(one);  // a movie goes on without the one that asked
  heard(two);
  video.end();
  EXPECT_EQ(heard(two), "ENDOFSTREAM$MOVIEPLAYERSTATE|STOP$");
  EXPECT_EQ(screen.shows, u""_s);
}

TEST_F(MovieServiceTest, MusicAndMoviesNeverSoundTogetherAndHearTheirOwnReports) {
  MusicService music{{listener, files, player, musicTimer, system.pump, log, {}, {roots, 1000}}};
  const Peer songs = tcp.join(), films = tcp.join(), silent = tcp.join();
  say(songs, "MUSIC|STATUS$");
  say(films, "MOVIE|STATUS$");
  say(songs, "MUSIC|PLAY|a.mp3|S$");
  heard(songs), heard(films);
  expect(films, "MOVIE|PLAY|a.avi|A$", kBegun);
  EXPECT_EQ(heard(songs), "MEDIAPLAYERSTATE|0$");
  EXPECT_EQ(player.playState(), MediaPlayer::Stopped);
  expect(films, "MOVIE|PAUSE$", "MOVIEPLAYERSTATE|PAUSED$");
  expect(songs, "MUSIC|PLAY|a.mp3|S$", "MUSICDURATION|0$SONGPLAYING|S$MEDIAPLAYERSTATE|2$");
  EXPECT_EQ(heard(films), "MOVIEPLAYERSTATE|STOP$");
  EXPECT_EQ(video.state(), VideoPlayer::Closed);
  expect(songs, "MUSIC|VOLUME|7$", "VOLUME|7$");
  EXPECT_EQ(heard(films), "VOLUME|7$") << "the level is the machine's";
  EXPECT_EQ(heard(silent), "VOLUME|7$");
}

}  // namespace
}  // namespace korvane
