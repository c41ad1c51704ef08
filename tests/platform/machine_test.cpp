// Lock, session and screen power against a real bus of this test's own.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>

#include "platform/files/home_lock.h"
#include "platform/machine/login_session.h"
#include "platform/machine/screen_saver_power.h"
#include "platform/machine/system_clock.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"
#include "tests/platform/private_bus.h"

namespace korvane {
namespace {

TEST(HomeLock, oneConsoleAHomeUntilItsProcessEnds) {
  const TemporaryHome home, other;
  const pid_t child = ::fork();
  if (child == 0) ::_exit(HomeLock(home.path()).taken() ? 1 : 0);
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  HomeLock first(home.path());
  EXPECT_FALSE(first.taken());
  EXPECT_FALSE(first.taken()) << "its own mark";
  EXPECT_FALSE(HomeLock(other.path()).taken());
  EXPECT_TRUE(HomeLock(home.path()).taken());
  EXPECT_TRUE(HomeLock(home.path()).taken()) << "asking takes nothing away";
  EXPECT_FALSE(HomeLock(home / u"none"_s).taken());
}

TEST(RandomChance, isUniformBelowOne) {
  RandomChance chance(1);
  std::array<int, 10> tenths{};
  for (int i = 0; i < 100'000; ++i) {
    const float value = chance.rnd();
    ASSERT_TRUE(value >= 0.0F && value < 1.0F);
    ++tenths[static_cast<size_t>(value * 10)];
  }
  for (const int count : tenths) EXPECT_NEAR(count, 10'000, 500);
  FakeClock clock;
  RandomChance now(clock);
  clock.advance(1);
  EXPECT_NE(now.rnd(), RandomChance(clock).rnd());
}

// The services that are talked to: records each call and answers, or refuses.
class Service : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    calls << message.member();
    arguments << message.arguments().value(0).toString();
    return bus.send(message.createReply(message.member() == "Inhibit"_L1 ? QVariantList{uint(42)}
                                                                         : QVariantList{}));
  }
  QStringList calls, arguments;
};

class Bus : public testing::Test {
 protected:
  QDBusConnection client() { return bus.connect(u"client"_s); }
  // Lets both ends run until the service has heard `calls`.
  bool hears(const QStringList& calls) {
    QElapsedTimer time;
    for (time.start(); service.calls != calls && time.elapsed() < 5000;)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    return service.calls == calls;
  }

  Service service;
  PrivateBus bus;
  QDBusConnection server = bus.connect(u"server"_s);
};

TEST_F(Bus, theScreenIsKeptOnAndGivenBack) {
  ASSERT_TRUE(server.registerService(u"org.freedesktop.ScreenSaver"_s));
  ASSERT_TRUE(server.registerVirtualObject(u"/org/freedesktop/ScreenSaver"_s, &service));
  ScreenSaverPower power(client());
  const ScreenPower::Saved before = power.read();
  EXPECT_TRUE(before.powerOffActive && before.lowPowerActive);
  power.write({false, false, 999, 999});
  EXPECT_TRUE(hears({u"Inhibit"_s}));
  power.setScreenSaverActive(false);
  power.write(before);
  power.setScreenSaverActive(true);
  EXPECT_TRUE(hears({u"Inhibit"_s, u"UnInhibit"_s}));
  EXPECT_EQ(service.arguments.last(), u"42"_s);
  service.calls.clear();
  power.setScreenSaverActive(false);
  power.setScreenSaverActive(true);  // before the answer
  EXPECT_TRUE(hears({u"Inhibit"_s, u"UnInhibit"_s}));
}

TEST_F(Bus, withoutTheServiceNothingHappens) {
  ScreenSaverPower power(client());
  QElapsedTimer time;
  time.start();
  power.setScreenSaverActive(false);
  EXPECT_LT(time.elapsed(), 200);
  EXPECT_FALSE(LoginSession(client()).exitWindows(2));
  EXPECT_FALSE(LoginSession(QDBusConnection(u"none"_s)).exitWindows(2));
}

TEST(LoginSession, flagsMeanMethods) {
  const std::pair<int, QString> table[] = {
      {0, u""_s},       {1, u"PowerOff"_s}, {2, u"Reboot"_s},   {4, u""_s},
      {6, u"Reboot"_s}, {9, u"PowerOff"_s}, {13, u"PowerOff"_s}};
  for (const auto& [flags, method] : table)
    EXPECT_EQ(LoginSession::methodOf(flags), method) << flags;
}

}  // namespace
}  // namespace korvane
