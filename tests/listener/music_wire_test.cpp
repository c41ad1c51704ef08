// The connection over real TCP against the test Listener.
#include "platform/winsock_qt.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/test_listener.h"
#include "tests/listener/music_world.h"

namespace korvane {
namespace {

struct MusicWireTest : MusicWorld {
  MusicWireTest() {
    state.gMusicListenerIP = u"127.0.0.1"_s;
    state.gMusicListenerPort = QString::number(listener.port());
    overTcp.setNews(&news);
  }
  bool until(const std::function<bool()>& done) {
    return pump.wait(30000, [&] {
      system.pump.doEvents();
      return done();
    });
  }
  void connect() {
    overTcp.ConnectionMP3Connect();
    ASSERT_TRUE(until([&] { return overTcp.listenerVolume == 50; }));  // the last answer to STATUS
  }
  void play() { overTcp.ConnectionMP3Send(u"MUSIC"_s, u"PLAY"_s, u"/m/a.mp3"_s, u"A"_s); }

  LoopPump pump;
  TestListener listener;
  WinsockQt tcp;
  MusicConnection overTcp{
      {form, state, settings, messages, logger, pump, system.files, player, system.mixer, tcp, {}}};
};

TEST_F(MusicWireTest, ASongFromPlayToItsEnd) {
  listener.songSeconds = 0.3;
  listener.tickMs = 50;
  listener.cover = "picture";
  musicPageOpen();
  connect();
  play();
  EXPECT_TRUE(until([&] { return news.heard.contains(u"end"_s); }));
  EXPECT_EQ(listener.received,
            QByteArrayList({bytes("MUSIC|STATUS$"), bytes("MUSIC|PLAY|/m/a.mp3|A$")}));
  EXPECT_EQ(control<Label>("lblCurrentPlay").caption(), u"Playing: A"_s);
  EXPECT_GT(Slider1.value(), 0.2);
  EXPECT_EQ(*coverArt.picture->bytes, "picture");
}

TEST_F(MusicWireTest, SplitDeliveriesLoseRecordsAndNothingElse) {
  connect();
  listener.pieceBytes = 3;
  listener.send({u"SONGPLAYING"_s, u"cut"_s});
  listener.pieceBytes = 0;
  pump.wait(100, [] { return false; });
  listener.send({u"MUSICDURATION"_s, u"77"_s});
  EXPECT_TRUE(until([&] { return Slider1.maximum() == 77; }));
}

TEST_F(MusicWireTest, AFloodIsHandledAndTheFormStaysAlive) {
  connect();
  listener.flood(200'000);
  listener.send({u"SONGPLAYING"_s, u"after"_s});
  EXPECT_TRUE(until([&] { return Slider1.value() == 1; }));
  EXPECT_TRUE(
      until([&] { return control<Label>("lblCurrentPlay").caption() == u"Playing: after"_s; }));
}

TEST_F(MusicWireTest, AListenerThatVanishesMidSongAndComesBack) {
  connect();
  play();
  ASSERT_TRUE(until([&] { return state.gPlayMode == 2; }));
  listener.vanish();
  EXPECT_TRUE(until([&] { return news.heard.contains(u"press 3"_s); }));
  EXPECT_EQ(overTcp.connectionState(), Winsock::Closed);
  overTcp.ConnectionMP3Send(u"MUSIC"_s, u"STOP"_s);  // dropped
  overTcp.listenerVolume = 0;
  connect();
  EXPECT_EQ(state.gPlayMode, 2);  // it still plays
  EXPECT_EQ(listener.received.last(), bytes("MUSIC|STATUS$"));
}

TEST_F(MusicWireTest, ARefusedConnectionIsAnErrorInWords) {
  QTcpServer gone;
  ASSERT_TRUE(gone.listen(QHostAddress::LocalHost));
  state.gMusicListenerPort = QString::number(gone.serverPort());
  gone.close();
  overTcp.ConnectionMP3Connect();
  EXPECT_TRUE(until([&] { return log().contains(u"Error in connectionMP3 "_s); }));
  EXPECT_EQ(overTcp.connectionState(), Winsock::Closed);
}

TEST(WinsockQtTest, AnOwnerThatYieldsInAnEventHearsTheNextOne) {
  struct Owner : Winsock::Events {
    explicit Owner(Winsock& owned) : socket(owned) { socket.setEvents(this); }
    void Connect() override { connected = true; }
    void Close() override { ++closes; }
    void Error(const QString& text) override { error = text; }
    void DataArrival(qint64 count) override {
      got += socket.GetData(count);
      if (onData) onData();
    }
    Winsock& socket;
    bool connected = false;
    int closes = 0;
    QString error;
    QByteArray got;
    std::function<void()> onData;
  };
  LoopPump pump;
  TestListener listener;
  listener.silent = true;
  WinsockQt socket;
  Owner owner(socket);
  socket.SendData("before");  // dropped
  socket.RemoteHost = u"127.0.0.1"_s;
  socket.RemotePort = listener.port();
  socket.Connect();
  EXPECT_EQ(socket.state(), Winsock::Connecting);
  ASSERT_TRUE(pump.wait(5000, [&] { return owner.connected && listener.connected(); }));
  EXPECT_EQ(socket.LocalIP(), u"127.0.0.1"_s);
  bool nested = false;
  owner.onData = [&] {
    if (std::exchange(nested, true)) return;
    listener.send(QByteArray("second"));
    EXPECT_TRUE(pump.wait(5000, [&] { return owner.got == "firstsecond"; }));
  };
  listener.send(QByteArray("first"));
  EXPECT_TRUE(pump.wait(5000, [&] { return owner.got == "firstsecond"; }));
  socket.SendData("x\1");
  EXPECT_TRUE(pump.wait(5000, [&] { return listener.received == QByteArrayList{"x\1"}; }));
  listener.send(QByteArray("last"));
  listener.vanish();
  EXPECT_TRUE(pump.wait(5000, [&] { return owner.closes == 1; }));
  EXPECT_EQ(owner.error, QString());

  socket.RemoteHost = u"127.0.0.1"_s;  // closed before anything happens: silence
  socket.Connect();
  socket.Close();
  owner.connected = false;
  EXPECT_FALSE(pump.wait(100, [&] { return owner.connected || !owner.error.isEmpty(); }));
}

}  // namespace
}  // namespace korvane
