// What peers send to the Master Listener, to the lights and to a Listener of music and movies. A
// byte of 3 ends a delivery, one of 4 a connection.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "platform/files/disk_file_system.h"
#include "services/lights/lights_service.h"
#include "services/listener/movie_service.h"
#include "services/listener/music_service.h"
#include "services/master/master_service.h"
#include "tests/fakes/fake_media_player.h"
#include "tests/fakes/fake_movie_screen.h"
#include "tests/fakes/fake_mqtt.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/fake_tcp_server.h"

namespace {

using namespace korvane;

void require(bool held) {
  if (!held) __builtin_trap();
}

struct Quiet : ServiceLog {
  using ServiceLog::ServiceLog;
  void write(const QByteArray& line) override {
    require(line.endsWith('\n') && line.count('\n') == 1);
  }
};

struct World {
  FakeSystem system;
  FakeTcpServer tcp;
  FakeTicker ticker, turns, musicTimer, movieTimer;
  AllowList allow;
  Quiet log{system.clock, "fuzz"};
  RecordServer server{{tcp, ticker, turns, system.clock, log, allow, {}}};
};

// All that `stream` holds, to a service behind `world`; each connection sees whole records.
void serve(World& world, const QByteArray& stream) {
  for (const QByteArray& connection : stream.split('\4')) {
    const TcpServer::Peer peer = world.tcp.join();
    for (const QByteArray& delivery : connection.split('\3')) {
      if (world.server.has(peer)) world.tcp.arrive(peer, delivery);
      world.system.pump.settle();
      while (world.turns.running()) world.turns.fire();
      world.system.clock.advance(500);
      world.ticker.fire();
    }
    const QByteArray sent = world.tcp.take(peer);
    require(sent.isEmpty() || sent.endsWith('\1'));
    if (world.server.has(peer)) world.tcp.leave(peer);
    world.tcp.sent.clear();
  }
}

// The player opens what stands below the root, and nothing else.
struct CheckedPlayer : FakeMediaPlayer {
  explicit CheckedPlayer(QString below) : root(std::move(below)) {}
  void setFileName(const QString& path) override {
    require(path.startsWith(root + u'/') && !path.contains("/../"_L1));
    FakeMediaPlayer::setFileName(path);
    calls.clear();
  }
  QString root;
};

struct CheckedVideo : FakeVideoPlayer {
  explicit CheckedVideo(QString below) : root(std::move(below)) {}
  void open(const QString& path) override {
    require(path.startsWith(root + u'/') && !path.contains("/../"_L1));
    calls.clear();
    FakeVideoPlayer::open(path);
  }
  QString root;
};

bool written(const QTemporaryDir& root, const QString& name) {
  QDir(root.path()).mkpath(QFileInfo(root.filePath(name)).path());
  QFile file(root.filePath(name));
  return file.open(QIODevice::WriteOnly) && file.write("x") == 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray stream(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  static const QTemporaryDir root;
  static const bool made = written(root, u"a.mp3"_s) && written(root, u"a.avi"_s) &&
                           written(root, u"D/VIDEO_TS/VIDEO_TS.IFO"_s);
  require(made);
  {
    World world;
    const MasterService master({world.server, world.log, WireText::Windows1252, world.allow,
                                [](const QString&) { return false; }});
    serve(world, stream);
    require(master.table().entries().isEmpty());
  }
  {
    World world;
    FakeMqtt broker;
    FakeTicker settling;
    const LightsService lights({world.server, broker, settling, world.log},
                               {{.unit = 1, .topic = u"lamp"_s, .dims = true}});
    broker.stand();
    serve(world, stream);
    require(broker.published.size() <= 1);  // nothing was delivered, so one is under way
  }
  World world;
  const QString top = QFileInfo(root.path()).canonicalFilePath();
  CheckedPlayer player(top);
  CheckedVideo video(top);
  FakeDvdPlayer dvd;
  FakeMovieScreen screen;
  static const DiskFileSystem files;
  const MediaRoots roots{{root.path()}, {{u"Z:"_s, root.path()}}};
  ListenerService listener({world.server, world.system.mixer, WireText::Utf8});
  const MusicService music(
      {listener, files, player, world.musicTimer, world.system.pump, world.log, {}, {roots, 1000}});
  const MovieService movies(
      {listener, files, video, dvd, screen, world.movieTimer, world.log, {roots, {}, 1000}});
  serve(world, stream);
  require(dvd.DVDDirectory().isEmpty() || dvd.DVDDirectory().startsWith(top + u'/'));
  const int sounding = (player.playState() == MediaPlayer::Playing) +
                       (video.state() == VideoPlayer::Playing) +
                       (dvd.state() == DvdPlayer::Playing);
  require(sounding <= 1);
  return 0;
}
