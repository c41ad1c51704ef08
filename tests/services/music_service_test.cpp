// The Music Listener's side of the wire, byte for byte, with one console and with several.
#include "services/listener/music_service.h"

#include <sys/stat.h>

#include <QFileInfo>

#include "platform/files/disk_file_system.h"
#include "tests/fakes/fake_media_player.h"
#include "tests/fakes/temporary_home.h"
#include "tests/services/service_world.h"

namespace korvane {
namespace {

struct MusicServiceTest : ServiceWorld {
  void play(Peer peer, const QByteArray& title = "A") {
    say(peer, "MUSIC|PLAY|" + song.toUtf8() + "|" + title + "$");
  }
  void drain() {
    system.pump.settle();
    pass(4 * Outbox::kGapMs);
  }

  TemporaryHome root;
  const QString song = QFileInfo(root.put(u"a.mp3"_s, "x")).canonicalFilePath();
  FakeMediaPlayer player;
  FakeTicker musicTimer;
  QByteArray cover;
  RecordServer server{{tcp, doorTicker, turns, system.clock, log, allow, limits}};
  DiskFileSystem files;
  ListenerService listener{{server, system.mixer}};
  MusicService music{
      {listener,
       files,
       player,
       musicTimer,
       system.pump,
       log,
       [this](const QString&) { return cover.isEmpty() ? std::nullopt : std::optional(cover); },
       {{{root.path()}, {}}, 1000}}};
};

TEST_F(MusicServiceTest, EveryCommandAndItsAnswers) {
  system.mixer.top = 100;
  system.mixer.opened = true;
  system.mixer.value = 40;
  const Peer peer = tcp.join();
  const auto expect = [&](const QByteArray& command, const QByteArray& answer) {
    say(peer, command);
    EXPECT_EQ(heard(peer), answer) << command.constData();
  };
  expect("MUSIC|STATUS$", "MEDIAPLAYERSTATE|0$MAXVOLUME|100$VOLUME|40$");
  expect("MUSIC|PLAY$", "MEDIAPLAYERSTATE|0$");
  expect("MUSIC|PAUSE$", "");
  expect("MUSIC|STOP$", "MEDIAPLAYERSTATE|0$");
  expect("MUSIC|PLAY|/nowhere/b.mp3|B$", "ERROR|File not found$");
  play(peer, "Caf\xE9");
  EXPECT_EQ(heard(peer), "MUSICDURATION|0$SONGPLAYING|Caf\xE9$MEDIAPLAYERSTATE|2$");
  player.tellDuration(61.5);
  EXPECT_EQ(heard(peer), "MUSICDURATION|61.5$");
  player.CurrentPositionValue = 61.25;
  musicTimer.fire();
  EXPECT_EQ(heard(peer), "MUSICTIMER|1:01|61.25$");
  expect("MUSIC|STATUS$",
         "MUSICDURATION|61.5$SONGPLAYING|Caf\xE9$MEDIAPLAYERSTATE|2$MAXVOLUME|100$VOLUME|40$");
  expect("MUSIC|DURATION$", "MUSICDURATION|61.5$");
  expect("MUSIC|CURRENTPOSITION|12,5$", "");
  expect("MUSIC|MUTE=TRUE$MUSIC|MUTE=FALSE$", "");
  expect("MUSIC|VOLUME|30$", "VOLUME|30$");
  expect("MUSIC|VOLUME|much$", "VOLUME|much$");
  expect("MUSIC|PAUSE$", "MEDIAPLAYERSTATE|1$");
  expect("MUSIC|PLAY$", "PAUSETOPLAY$");
  expect("MUSIC|STOP$", "MEDIAPLAYERSTATE|0$");
  expect("MUSIC$OTHER|STATUS$$MUSIC|status$MUSIC|$", "");
  EXPECT_EQ(system.mixer.value, 30);
  EXPECT_EQ(player.calls, QStringList({u"stop"_s, u"open "_s + song, u"play"_s, u"seek 12.5"_s,
                                       u"mute"_s, u"unmute"_s, u"pause"_s, u"play"_s, u"stop"_s}));
  EXPECT_FALSE(musicTimer.running());
}

TEST_F(MusicServiceTest, AllConsolesHearOfAChangeAndOneOfTheEnd) {
  const Peer one = tcp.join(), two = tcp.join();
  play(one);
  heard(one);
  EXPECT_EQ(heard(two), "MUSICDURATION|0$SONGPLAYING|A$MEDIAPLAYERSTATE|2$PAUSETOPLAY$");
  say(two, "MUSIC|PAUSE$");
  EXPECT_EQ(heard(one), "MEDIAPLAYERSTATE|1$");
  player.CurrentPositionValue = 0;
  say(two, "MUSIC|CURRENTPOSITION|7$");
  EXPECT_EQ(heard(one), "MUSICTIMER|0:07|7$") << "no tick tells it while paused";
  say(two, "MUSIC|PLAY$MUSIC|VOLUME|9$MUSIC|STATUS$MUSIC|PLAY|/x.mp3|X$");
  EXPECT_EQ(heard(one), "PAUSETOPLAY$VOLUME|9$") << "neither status nor error of another";
  say(two, "MUSIC|VOLUME|" + QByteArray(8000, '9') + '$');
  play(two, QByteArray(8000, 'T'));
  EXPECT_LE(heard(one).size(), 1200) << "nobody fills another's queue";
  play(one), heard(one);
  heard(two);
  player.end();
  EXPECT_EQ(heard(one), "ENDOFSTREAM$");
  play(one, "B");
  EXPECT_EQ(heard(two), "MUSICDURATION|0$SONGPLAYING|B$MEDIAPLAYERSTATE|2$PAUSETOPLAY$");
  player.end();
  heard(one);
  musicTimer.fire(), musicTimer.fire(), musicTimer.fire();
  EXPECT_EQ(heard(one), "MEDIAPLAYERSTATE|0$") << "nothing followed";
  EXPECT_EQ(heard(two), "MEDIAPLAYERSTATE|0$");
  play(one, "C");
  tcp.leave(one);
  heard(two);
  player.end();
  EXPECT_EQ(heard(two), "MEDIAPLAYERSTATE|0$") << "nobody knows what follows";
}

TEST_F(MusicServiceTest, TheEchoOfAStopDoesNotEndTheNextSong) {
  const Peer one = tcp.join(), two = tcp.join();
  play(one);
  say(one, "MUSIC|STOP$");
  play(one, "B");
  heard(two);
  say(two, "MUSIC|STOP$");  // since it heard of the first stop
  EXPECT_EQ(player.playState(), MediaPlayer::Playing);
  EXPECT_EQ(heard(two), "MEDIAPLAYERSTATE|2$");
  say(two, "MUSIC|STOP$");  // a finger
  EXPECT_EQ(player.playState(), MediaPlayer::Stopped);
  play(one, "C");
  system.clock.advance(5000);
  say(one, "MUSIC|STOP$");
  EXPECT_EQ(player.playState(), MediaPlayer::Stopped);
}

TEST_F(MusicServiceTest, DamagedSongsArePassedOverThreeTimes) {
  const Peer one = tcp.join(), two = tcp.join();
  for (int failure = 1; failure <= 3; ++failure) {
    play(one);
    heard(one);
    player.fail(u"damaged"_s);
    EXPECT_EQ(heard(one), "ERROR|damaged$ENDOFSTREAM$");
  }
  play(one);
  heard(one), heard(two);
  player.fail(u"damaged"_s);
  EXPECT_EQ(heard(one), "ERROR|damaged$MEDIAPLAYERSTATE|0$");
  EXPECT_EQ(heard(two), "MEDIAPLAYERSTATE|0$");
}

TEST_F(MusicServiceTest, WhatFailsIsSaidWithoutThePlaceOnThisMachine) {
  const Peer peer = tcp.join();
  const std::pair<QString, const char*> table[] = {
      {u"Cannot play %1: the file may not be read."_s.arg(song),
       "ERROR|Cannot play A.MP3: the file may not be read.$"},
      {u"Cannot open %1.part"_s.arg(root.path() + u"/other"_s), "ERROR|Cannot play A.MP3$"},
  };
  for (const auto& [description, record] : table) {
    player.errors[song] = description;
    say(peer, "MUSIC|PLAY|Z:\\Music\\A.MP3|A$");
    EXPECT_EQ(heard(peer), record);
    player.errors.clear();
    say(peer, "MUSIC|PLAY|Z:\\Music\\A.MP3|A$");
    heard(peer);
    player.fail(description);
    EXPECT_EQ(heard(peer), record + QByteArray("ENDOFSTREAM$"));
    EXPECT_TRUE(log.text.contains(description.toUtf8())) << "the owner reads all of it";
  }
}

TEST_F(MusicServiceTest, AConsoleMayBeSilent) {
  const Peer console = tcp.join(), stranger = tcp.join();
  say(console, "MUSIC|STATUS$");
  say(stranger, "GET / HTTP/1.1$");
  pass(limits.idleMs + 1000);
  EXPECT_TRUE(server.has(console));
  EXPECT_FALSE(server.has(stranger));
}

TEST_F(MusicServiceTest, TheCoverOfTheSongThatPlays) {
  const Peer peer = tcp.join();
  cover = QByteArray(5000, '\1');
  play(peer);
  drain();
  EXPECT_EQ(tcp.sent[peer].mid(1),
            QByteArrayList({bytes("SONGPLAYING|A$"), bytes("MEDIAPLAYERSTATE|2$"),
                            bytes("RECEIVEJPG|5000$"), cover}));
  tcp.sent[peer].clear();
  system.pump.holdBackground = true;
  play(peer, "B");
  cover = "other";
  play(peer, "C");
  say(peer, "MUSIC|STOP$");
  system.pump.runBackground();
  drain();
  EXPECT_FALSE(tcp.take(peer).contains("RECEIVEJPG")) << "of songs that no longer play";
}

struct SongPathsTest : testing::Test {
  SongPathsTest() {
    for (const char* file : {"music/Blues/Låt.mp3", "music/top.mp3", "music/list.m3u",
                             "music/folder.mp3/x", "music-more/top2.mp3", "secret/s.mp3"})
      home.put(QString::fromUtf8(file), "x");
    QFile::link(at("secret/s.mp3"), at("music/out.mp3"));
    QFile::link(at("secret"), at("music/outside"));
    QFile::link(at("music/top.mp3"), at("music/inside.mp3"));
    mkfifo(at("music/pipe.mp3").toUtf8().constData(), 0600);
  }
  QString at(const char* name) const { return top + u'/' + QString::fromUtf8(name); }

  TemporaryHome home;
  const QString top = QFileInfo(home.path()).canonicalFilePath();
  const MediaRoots roots{{at("music")}, {{u"Q:\\Songs"_s, at("music/Blues")}}};
  DiskFileSystem files;
};

TEST_F(SongPathsTest, WhatAConsoleCallsIt) {
  const std::pair<QString, const char*> table[] = {
      {at("music/top.mp3"), "music/top.mp3"},
      {u"top.mp3"_s, "music/top.mp3"},
      {u"/top.mp3"_s, "music/top.mp3"},
      {u"Z:\\Music\\TOP.MP3"_s, "music/top.mp3"},
      {u"/media/nas/Blues/./låt.mp3"_s, "music/Blues/Låt.mp3"},
      {u"q:/songs/Låt.mp3"_s, "music/Blues/Låt.mp3"},
      {at("music/inside.mp3"), "music/top.mp3"},
  };
  for (const auto& [path, file] : table)
    EXPECT_EQ(findBelow(files, roots, kSongEndings, path), at(file)) << qUtf8Printable(path);
}

TEST_F(SongPathsTest, NothingOutsideOfTheRootsAndNothingThatIsNoSong) {
  QStringList tried{at("secret/s.mp3"), at("music/../secret/s.mp3"), at("music-more/top2.mp3"),
                    QString(100'000, u'a'), QString(u"a/"_s).repeated(5000) + u"top.mp3"_s};
  for (const char* path :
       {"", "/", "..", "../secret/s.mp3", "..\\secret\\s.mp3", "Blues/../../secret/s.mp3",
        "Q:\\Songs\\..\\..\\secret\\s.mp3", "out.mp3", "outside/s.mp3", "list.m3u", "Blues",
        "folder.mp3", "pipe.mp3", "/etc/passwd", "/proc/self/environ", "top.mp3/x",
        "file:///etc/passwd.mp3", "http://10.0.0.1/a.mp3"})
    tried << QString::fromLatin1(path);
  for (const char16_t c : {u'/', u'.', u'\0'})  // a byte of a name on disk, written as an escape
    tried << QString(QChar(0xEF00 | c)) + QChar(0xEF2E) + QChar(0xEF2F) + u"secret/s.mp3"_s
          << u"Blues/"_s + QString(2, QChar(0xEF2E)) + u"/../secret/s.mp3"_s + QChar(0xEF00 | c);
  for (int byte = 1; byte < 256; ++byte)
    tried << QString(QChar(byte)) + u"../secret/s.mp3"_s
          << u".."_s + QChar(byte) + u"/secret/s.mp3"_s;
  for (const QString& path : tried)
    EXPECT_EQ(findBelow(files, roots, kSongEndings, path), std::nullopt)
        << qUtf8Printable(path.left(80));
}

}  // namespace
}  // namespace korvane
