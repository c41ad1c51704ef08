// Echoes of the real kernel, in a network of the test's own with nothing but a loopback, and the
// address that a connection is made from.
#include <gtest/gtest.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QFile>

#include <cstring>

#include "platform/net/network_linux.h"
#include "platform/net/tcp_server_qt.h"
#include "platform/net/winsock_qt.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

bool put(const char* path, const std::string& text) {
  QFile file(QString::fromLatin1(path));
  return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
         file.write(text.data(), static_cast<qint64>(text.size())) > 0;
}

bool enterOwnNetwork() {
  const auto uid = std::to_string(geteuid()), gid = std::to_string(getegid());
  if (geteuid() == 0) return unshare(CLONE_NEWNET) == 0;
  return unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0 && put("/proc/self/setgroups", "deny") &&
         put("/proc/self/uid_map", "0 " + uid + " 1") &&
         put("/proc/self/gid_map", "0 " + gid + " 1");
}

bool raiseLoopback() {
  const int any = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  ifreq request{};
  std::strcpy(request.ifr_name, "lo");
  request.ifr_flags = IFF_UP;
  const bool raised = ::ioctl(any, SIOCSIFFLAGS, &request) == 0;
  ::close(any);
  return raised;
}

struct NetworkTest : testing::Test {
  std::optional<Network::EchoStatus> ping(const QString& address, int timeoutMs = 5000) {
    std::optional<Network::EchoStatus> heard;
    network.ping(address, timeoutMs, [&](Network::EchoStatus status) {
      EXPECT_FALSE(heard);
      heard = status;
    });
    EXPECT_FALSE(heard) << "an answer inside the call";
    pump.wait(6000, [&] { return heard.has_value(); });
    return heard;
  }
  LoopPump pump;
  NetworkLinux network;
};

constexpr char kGroups[] = "/proc/sys/net/ipv4/ping_group_range";

TEST_F(NetworkTest, TellsWhatBecameOfAnEcho) {
  ASSERT_TRUE(enterOwnNetwork()) << strerror(errno);
  ASSERT_TRUE(raiseLoopback()) << strerror(errno);
  ASSERT_TRUE(put(kGroups, "1 0"));
  EXPECT_EQ(ping(u"127.0.0.1"_s), Network::Forbidden);
  ASSERT_TRUE(put(kGroups, "0 0"));
  EXPECT_EQ(ping(u"127.0.0.1"_s), Network::Reachable);
  EXPECT_EQ(ping(u"10.1.2.3"_s), Network::Unreachable);
  for (const char* invalid : {"", "NO", "127.0.0", "127.0.0.256", "localhost", "127.0.0.1 "})
    EXPECT_EQ(ping(QString::fromLatin1(invalid)), Network::InvalidAddress) << invalid;
  EXPECT_TRUE(network.localIPAddresses().isEmpty());  // the loopback is none
  ASSERT_TRUE(put("/proc/sys/net/ipv4/icmp_echo_ignore_all", "1"));
  EXPECT_EQ(ping(u"127.0.0.1"_s, 100), Network::TimedOut);
}

TEST_F(NetworkTest, ASecondPingOrAnEndDropsTheAnswer) {
  QStringList heard;
  network.ping(u"one"_s, 50, [&](auto) { heard << u"one"_s; });
  network.ping(u"two"_s, 50, [&](auto) {
    heard << u"two"_s;
    network.ping(u"three"_s, 50, [&](auto) { heard << u"three"_s; });
  });
  pump.wait(2000, [&] { return heard.size() == 2; });
  EXPECT_EQ(heard, QStringList({u"two"_s, u"three"_s}));
  network.ping(u"four"_s, 1, [&](auto) { heard << u"four"_s; });
  network.cancelPing();
  pump.wait(30, [] { return false; });
  EXPECT_EQ(heard.size(), 2);
}

struct ConnectionTest : testing::Test, TcpServer::Events, Winsock::Events {
  ConnectionTest() {
    QString error;
    server.setEvents(this);
    socket.setEvents(this);
    EXPECT_TRUE(server.listen(u"127.0.0.1"_s, 0, &error)) << error.toStdString();
    socket.RemoteHost = u"127.0.0.1"_s;
    socket.RemotePort = server.port();
  }
  bool joined(TcpServer::Peer from, const QString& address) override {
    peer = from;
    heard << u"from "_s + address;
    return true;
  }
  void arrived(TcpServer::Peer, const QByteArray& bytes) override { atServer += bytes; }
  void took(TcpServer::Peer) override {}
  void left(TcpServer::Peer) override {}
  void Connect() override { stands = true; }
  void Close() override { heard << u"closed"_s; }
  void DataArrival(qint64 count) override {
    got += socket.GetData(count);
    if (onData) std::exchange(onData, {})();
  }
  void Error(const QString& description) override { heard << description; }

  QStringList heard;
  QByteArray got, atServer;
  std::function<void()> onData;  // once
  TcpServer::Peer peer = 0;
  bool stands = false;
  LoopPump pump;
  TcpServerQt server;
  WinsockQt socket;
};

TEST_F(ConnectionTest, AnOwnerThatYieldsInAnEventHearsTheNextOne) {
  const auto hasBoth = [this] { return got == "firstsecond"; };
  socket.SendData("before");  // dropped
  socket.Connect();
  EXPECT_EQ(socket.state(), Winsock::Connecting);
  ASSERT_TRUE(pump.wait(5000, [&] { return stands && peer > 0; }));
  onData = [&] {
    server.send(peer, "second");
    EXPECT_TRUE(pump.wait(5000, hasBoth));
  };
  server.send(peer, "first");
  EXPECT_TRUE(pump.wait(5000, hasBoth));
  socket.SendData("x");
  EXPECT_TRUE(pump.wait(5000, [&] { return atServer == "x"; }));
  heard.clear();
  server.send(peer, "last");
  server.drop(peer);
  EXPECT_TRUE(pump.wait(5000, [&] { return heard == QStringList{u"closed"_s}; }));

  stands = false;
  socket.Connect();
  socket.Close();  // before anything happens: silence
  pump.wait(100, [] { return false; });
  EXPECT_FALSE(stands);
  heard.removeOne(u"from 127.0.0.1"_s);  // its machine may have made it
  EXPECT_EQ(heard, QStringList{u"closed"_s});
}

// The loopback network is this machine's own from 127.0.0.1 to 127.255.255.254.
TEST_F(ConnectionTest, IsMadeFromTheAddressThatIsAskedFor) {
  const struct {
    const char *from, *heard;
  } cases[] = {
      {"", "from 127.0.0.1"},
      {"127.0.0.2", "from 127.0.0.2"},
      {"203.0.113.9", "Cannot connect from 203.0.113.9: it is no address of this machine."},
      {"cabin", "Cannot connect from cabin: it is no address of this machine."},
      {"127.0.0.3", "from 127.0.0.3"},
      {"", "from 127.0.0.1"},
  };
  for (const auto& c : cases) {
    const bool good = std::string_view(c.heard).starts_with("from");
    heard.clear();
    stands = false;
    socket.LocalHost = QString::fromLatin1(c.from);
    socket.Connect();
    EXPECT_TRUE(heard.isEmpty()) << "an event inside the call";
    EXPECT_TRUE(pump.wait(3000, [&] { return !heard.isEmpty() && stands == good; })) << c.from;
    EXPECT_EQ(heard, QStringList(QString::fromLatin1(c.heard)));
    EXPECT_EQ(socket.state(), good ? Winsock::Connected : Winsock::Error) << c.from;
    EXPECT_TRUE(!good || socket.LocalIP().startsWith(socket.LocalHost)) << c.from;
  }
}

}  // namespace
}  // namespace korvane
