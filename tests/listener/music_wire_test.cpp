// The connection over real TCP against the test Listener.
#include "platform/net/winsock_qt.h"
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

  LoopPump pump;
  TestListener listener;
  WinsockQt tcp;
  MusicConnection overTcp{
      {form, state, settings, messages, logger, pump, system.files, player, system.mixer, tcp, {}}};
};

TEST_F(MusicWireTest, SplitDeliveriesLoseRecordsAndNothingElse) {
  connect();
  for (const char* piece : {"SON", "GPLAYING|c", "ut$"}) {
    listener.send(bytes(piece));
    pump.wait(50, [] { return false; });
  }
  listener.send(bytes("MUSICDURATION|77$"));
  EXPECT_TRUE(until([&] { return Slider1.maximum() == 77; }));
  EXPECT_EQ(caption("lblCurrentPlay"), u"Status:Idle"_s);
}

TEST_F(MusicWireTest, AFloodIsHandledAndTheFormStaysAlive) {
  connect();
  listener.send(bytes("MUSICTIMER|0:01|1$").repeated(200'000));
  listener.send(bytes("SONGPLAYING|after$"));
  EXPECT_TRUE(until([&] { return Slider1.value() == 1; }));
  EXPECT_TRUE(until([&] { return caption("lblCurrentPlay") == u"Playing: after"_s; }));
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
