// Echoes of the real kernel, in a network of the test's own with nothing but a loopback.
#include <gtest/gtest.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QFile>

#include <cstring>

#include "platform/net/network_linux.h"
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

}  // namespace
}  // namespace korvane
