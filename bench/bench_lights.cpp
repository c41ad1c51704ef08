// korvane-bench lights HOME LIGHTS: from a press on a lamp's button of the console at HOME, through
// the program korvane-lights, to its payload at a peer of a broker on this machine; beside a bare
// publish to that peer.
#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>
#include <cstdio>

#include "bench/bench.h"
#include "bench/bench_console.h"
#include "bench/bench_music.h"
#include "platform/net/mqtt_mosquitto.h"
#include "platform/net/winsock_qt.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;
constexpr int kPresses = 200;

bool written(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

quint16 freePort() {
  QTcpServer door;
  return door.listen(QHostAddress::LocalHost) ? door.serverPort() : 0;
}

// A program of this bench, which ends with it.
struct Program : QProcess {
  Program() { setReadChannel(QProcess::StandardError); }
  ~Program() override {
    terminate();
    waitForFinished(5000);
  }
  // The first group of `pattern` in what it says within 10 s.
  QString says(const QString& pattern) {
    QByteArray said;
    const QRegularExpression line(pattern);
    while (waitForReadyRead(10'000)) {
      said += readAllStandardError();
      const auto match = line.match(QString::fromUtf8(said));
      if (match.hasMatch()) return match.captured(1);
    }
    return {};
  }
};

// A peer of the broker that hears all topics.
struct Ear : Mqtt::Events {
  void brokerStands() override { stands = true; }
  void brokerLost(const QString&) override { stands = false; }
  void delivered(int) override {}
  void heard(const QString&, const QByteArray&) override {
    at = Clock::now();
    ++count;
  }
  bool stands = false;
  int count = 0;
  Clock::time_point at;
};

struct Cabin {
  Cabin(const QString& home, const QString& lights)
      : bench(home, [] { return std::make_unique<WinsockQt>(); }) {
    const QString port = QString::number(freePort());
    const QString config = folder.filePath(u"broker"_s), table = folder.filePath(u"lamps"_s);
    stands = written(config, "listener " + port.toUtf8() +
                                 " 127.0.0.1\nallow_anonymous true\npersistence false\nuser "
                                 "root\nlog_type notice\n") &&
             written(table, "[A1]\ntopic = lamp\ndims = yes\n");
    broker.start(u"/usr/sbin/mosquitto"_s, {u"-c"_s, config});
    stands = stands && !broker.says(u"(running)"_s).isEmpty();
    service.start(lights, {u"--as-root"_s, u"--port"_s, u"0"_s, u"--table"_s, table, u"--broker"_s,
                           u"127.0.0.1:"_s + port});
    servicePort = service.says(u" port (\\d+)\n"_s);
    peer = std::make_unique<MqttMosquitto>(bench.pump, MqttBroker{u"127.0.0.1"_s, port.toUShort()});
    peer->setEvents(&ear);
    peer->start();
  }
  bool until(const std::function<bool()>& done) { return bench.pump.wait(5000, done); }
  bool start() {
    if (!stands || !bench.console.SubMain() || !until([this] { return ear.stands; })) return false;
    peer->subscribe(u"#"_s);
    AppState& state = bench.console.desk.state;
    state.gX10 = u"YES"_s;
    state.gX10IP = u"127.0.0.1"_s;
    state.gX10Port = servicePort;
    bench.console.desk.tabs.imgTabs_Click(kMoreTab);
    return until([this] { return bench.console.control.lamps.connected(); });
  }

  QTemporaryDir folder;
  Program broker, service;
  BenchConsole bench;
  Ear ear;
  std::unique_ptr<Mqtt> peer;
  QString servicePort;
  bool stands = false;
};

// Milliseconds from each `act` to what the ear hears of it; empty when once it hears nothing.
std::vector<double> times(Cabin& cabin, const std::function<void(int)>& act) {
  std::vector<double> all;
  for (int i = -5; i < kPresses; ++i) {  // five to warm up
    const int before = cabin.ear.count;
    const Clock::time_point begin = Clock::now();
    act(i);
    if (!cabin.until([&] { return cabin.ear.count > before; })) return {};
    if (i >= 0)
      all.push_back(std::chrono::duration<double, std::milli>(cabin.ear.at - begin).count());
  }
  std::ranges::sort(all);
  return all;
}

}  // namespace

int benchLights(const QStringList& arguments) {
  if (arguments.size() != 2) return 2;
  Cabin cabin(arguments[0], arguments[1]);
  if (!cabin.start()) return 1;
  const Form& form = cabin.bench.console.desk.frmMain;
  const std::vector<double> bare = times(cabin, [&](int) { cabin.peer->publish(u"x"_s, "ON"); });
  const std::vector<double> ours = times(cabin, [&](int i) {
    Control& button = controlOf<Button>(form, u"cmdX10", i & 1);
    button.form.fire(button, {Event::Click});
  });
  const bool right = !bare.empty() && !ours.empty();
  Json("lights")
      .add("press_to_publish_ms", right ? ours[kPresses / 2] : 0)
      .add("slowest_ms", right ? ours.back() : 0)
      .add("bare_publish_ms", right ? bare[kPresses / 2] : 0)
      .add("right", right)
      .print();
  return right ? 0 : 1;
}

}  // namespace korvane
