// The mixer over a PulseAudio of this test's own, through ALSA's plug-in, and without any device.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "platform/sound/mixer_alsa.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"

namespace korvane {
namespace {

// A sound server whose one sink is no device; it ends with this object and leaves nothing.
class SoundServer {
 public:
  SoundServer() {
    environment_.insert(u"XDG_RUNTIME_DIR"_s, folder_.path());
    environment_.insert(u"HOME"_s, folder_.path());
    environment_.remove(u"PULSE_SERVER"_s);
  }
  ~SoundServer() { stop(); }

  bool start() {
    server_.setProcessEnvironment(environment_);
    server_.setStandardErrorFile(QProcess::nullDevice());
    server_.start(u"pulseaudio"_s,
                  {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
                   u"--disable-shm"_s, u"-L"_s, u"module-null-sink sink_name=none"_s, u"-L"_s,
                   u"module-native-protocol-unix auth-anonymous=1 socket="_s + socket()});
    if (!server_.waitForStarted()) return false;
    QElapsedTimer time;
    for (time.start(); time.elapsed() < 10'000;)
      if (pactl({u"info"_s}).contains("Default Sink: none")) return true;
    return false;
  }
  void stop() {
    if (server_.state() == QProcess::NotRunning) return;
    server_.terminate();
    if (!server_.waitForFinished(5000)) server_.kill();
    server_.waitForFinished();
  }

  // As another program of the machine.
  QByteArray pactl(const QStringList& arguments) {
    QProcess client;
    client.setProcessEnvironment(environment_);
    client.start(u"pactl"_s, QStringList{u"--server=unix:"_s + socket()} + arguments);
    client.waitForFinished(5000);
    return client.readAllStandardOutput();
  }
  QString socket() const { return folder_.filePath(u"native"_s); }
  QString folder() const { return folder_.path(); }

 private:
  QTemporaryDir folder_;
  QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
  QProcess server_;
};

class MixerTest : public testing::Test {
 protected:
  // ALSA reads this once in a process, so all cases have the one server folder.
  static void SetUpTestSuite() {
    server = new SoundServer;
    QFile sheet(server->folder() + u"/alsa.conf"_s);
    ASSERT_TRUE(sheet.open(QIODevice::WriteOnly));
    sheet.write("</usr/share/alsa/alsa.conf>\nctl.korvane { type pulse server \"unix:" +
                server->socket().toUtf8() + "\" }\n");
    sheet.close();
    qputenv("ALSA_CONFIG_PATH", QFile::encodeName(sheet.fileName()));
  }
  static void TearDownTestSuite() {
    delete std::exchange(server, nullptr);
    qunsetenv("ALSA_CONFIG_PATH");
  }
  void SetUp() override { ASSERT_TRUE(server->start()) << "pulseaudio must be installed"; }
  void TearDown() override { server->stop(); }

  bool until(int milliseconds, const std::function<bool()>& done) {
    return pump.wait(milliseconds, done);
  }

  static inline SoundServer* server = nullptr;
  LoopPump pump;
  MixerAlsa mixer{u"korvane"_s};
};

TEST_F(MixerTest, AChangeByAnotherProgramIsHeardWithinASecondAndItsOwnIsNone) {
  int changes = 0;
  mixer.watch([&] { ++changes; });
  bool opened = false;
  mixer.openLater([&](bool there) { opened = there; });
  ASSERT_TRUE(until(10'000, [&] { return opened; }));
  for (const int percent : {20, 80}) {
    changes = 0;
    server->pactl({u"set-sink-volume"_s, u"none"_s, QString::number(percent) + u'%'});
    EXPECT_TRUE(until(1000, [&] {
      return std::abs(mixer.level() * 100 / mixer.maximum() - percent) <= 1 && changes > 0;
    })) << percent;
  }
  changes = 0;
  for (const int level : {mixer.maximum() / 3, mixer.maximum() * 2}) {
    EXPECT_TRUE(mixer.setLevel(level));
    until(300, [] { return false; });
    EXPECT_NEAR(mixer.level(), std::min(level, mixer.maximum()), 1) << "kept within its range";
  }
  EXPECT_EQ(changes, 0);
}

TEST_F(MixerTest, GoesWithTheServerAndComesBackWithIt) {
  int changes = 0;
  mixer.watch([&] { ++changes; });
  ASSERT_TRUE(mixer.open());
  server->stop();
  EXPECT_TRUE(until(2000, [&] { return mixer.maximum() == 0; }));
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(mixer.setLevel(1));
  EXPECT_EQ(mixer.level(), 0);
  EXPECT_FALSE(mixer.open());
  ASSERT_TRUE(server->start());
  EXPECT_TRUE(mixer.open());
  EXPECT_GT(mixer.maximum(), 0);
}

TEST_F(MixerTest, WithoutADeviceItSaysSoAndNothingElse) {
  for (const char* device : {"none-such", "hw:31", ""}) {
    MixerAlsa none(QString::fromLatin1(device));
    EXPECT_FALSE(none.open());
    std::optional<bool> answer;
    none.openLater([&](bool there) { answer = there; });
    EXPECT_TRUE(until(5000, [&] { return answer.has_value(); }));
    EXPECT_FALSE(answer.value_or(true));
    EXPECT_EQ(none.maximum() + none.level(), 0);
    EXPECT_FALSE(none.setLevel(1));
  }
}

}  // namespace
}  // namespace korvane
