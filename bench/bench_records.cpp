// korvane-bench records: how fast Listener records are split and handled, and how soon one that
// comes in over TCP is answered, beside a bare QTcpSocket echo.
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <cstdio>
#include <thread>

#include "bench/bench_music.h"
#include "platform/net/winsock_qt.h"
#include "tests/fakes/loop_pump.h"
#include "tests/listener/music_parts.h"

namespace korvane {
namespace {

constexpr int kBlockRecords = 10'000, kSplitBlocks = 2'000, kHandledBlocks = 100, kAnswers = 5'000;

double seconds(const std::function<void()>& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

// What a Listener sends while it plays: mostly ticks.
QByteArray block() {
  QByteArray text;
  for (int i = 0; i < kBlockRecords; ++i)
    text += i % 50 ? bytes("MUSICTIMER|1:01|61.25$") : bytes("MUSICDURATION|212.5$");
  return text;
}

struct SplitRates {
  double ours = 0, bare = 0;  // records a second
  bool right = false;
};

SplitRates splitRates(const QByteArray& text) {
  qint64 fields = 0, ends = 0;
  const double ours = seconds([&] {
    for (int i = 0; i < kSplitBlocks; ++i)
      forEachRecord(text, [&](QByteArrayView bytes) {
        const ListenerRecord record(bytes, WireText::Windows1252);
        fields += record.count();
        return true;
      });
  });
  const double bare = seconds([&] {
    for (int i = 0; i < kSplitBlocks; ++i)
      for (const char c : text) ends += c == kRecordEnd || c == kFieldEnd;
  });
  const double records = static_cast<double>(kSplitBlocks) * kBlockRecords;
  return {records / ours, records / bare, fields == ends};
}

double handledRate(const QByteArray& text, bool& right) {
  MusicParts parts;
  parts.socket.setState(Winsock::Connected);
  const double time = seconds([&] {
    for (int i = 0; i < kHandledBlocks; ++i) parts.socket.arrive(text);
  });
  right = parts.Slider1.value() == 61.25 && parts.Slider1.maximum() == 212.5;
  return static_cast<double>(kHandledBlocks) * kBlockRecords / time;
}

// The peer: sends `question` and waits for an answer that ends in 0x01, again and again, on a
// thread of its own. The median time of an answer in microseconds.
double medianAnswer(int peer, const QByteArray& question) {
  std::vector<double> times;
  char buffer[4096];
  for (int i = 0; i < kAnswers; ++i) {
    const double time = seconds([&] {
      ssize_t got = send(peer, question.constData(), static_cast<size_t>(question.size()), 0);
      while (got > 0) {
        got = recv(peer, buffer, sizeof buffer, 0);
        if (got > 0 && buffer[got - 1] == kRecordEnd) break;
      }
    });
    times.push_back(time * 1e6);
  }
  std::nth_element(times.begin(), times.begin() + kAnswers / 2, times.end());
  return times[kAnswers / 2];
}

// A listening socket of this machine, at any port.
struct Door {
  Door() : handle(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(handle, plain, size) || listen(handle, 1) || getsockname(handle, plain, &size))
      throw std::runtime_error("no port to listen at");
    port = ntohs(address.sin_port);
  }
  ~Door() { close(handle); }
  int handle;
  quint16 port = 0;
};

// Takes one connection at the door and asks it; `run` turns the event loop until the peer is done.
double asked(Door& door, const QByteArray& question, LoopPump& pump) {
  std::atomic<bool> done = false;
  double median = 0;
  std::thread thread([&] {
    const int peer = accept(door.handle, nullptr, nullptr);
    const int on = 1;
    setsockopt(peer, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    median = medianAnswer(peer, question);
    close(peer);
    done = true;
  });
  while (!done) pump.turn();
  thread.join();
  return median;
}

struct Answering : TransportNews {
  void playerPaused() override {}
  void playerStopped() override {}
  void endOfStream() override { connection->ConnectionMP3Send(u"MUSIC"_s, u"DURATION"_s); }
  void songFailed(int) override {}
  MusicConnection* connection = nullptr;
};

double ourAnswer() {
  MusicParts parts;
  LoopPump pump;
  Door door;
  WinsockQt tcp;
  MusicConnection connection{{parts.form,
                              parts.state,
                              parts.settings,
                              parts.messages,
                              parts.logger,
                              pump,
                              parts.system.files,
                              parts.player,
                              parts.level,
                              tcp,
                              {}}};
  Answering news;
  news.connection = &connection;
  connection.setNews(&news);
  parts.state.gMusicListenerIP = u"127.0.0.1"_s;
  parts.state.gMusicListenerPort = QString::number(door.port);
  connection.ConnectionMP3Connect();
  return asked(door, bytes("ENDOFSTREAM$"), pump);
}

double bareAnswer() {
  LoopPump pump;
  Door door;
  QTcpSocket socket;
  QObject::connect(&socket, &QTcpSocket::readyRead, &socket,
                   [&] { socket.write(socket.readAll()); });
  socket.connectToHost(u"127.0.0.1"_s, door.port);
  socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
  return asked(door, bytes("ENDOFSTREAM$"), pump);
}

}  // namespace

int benchRecords(const QStringList&) {
  const QByteArray text = block();
  const SplitRates split = splitRates(text);
  bool handledRight = false;
  const double handled = handledRate(text, handledRight);
  const double bare = bareAnswer(), ours = ourAnswer();
  const bool right = split.right && handledRight;
  std::printf(
      "{\"mode\":\"records\",\"split_per_s\":%.0f,\"bare_split_per_s\":%.0f,"
      "\"handled_per_s\":%.0f,\"answer_us\":%.1f,\"bare_echo_us\":%.1f,\"answer_ratio\":%.2f,"
      "\"right\":%s}\n",
      split.ours, split.bare, handled, ours, bare, ours / bare, right ? "true" : "false");
  return right ? 0 : 1;
}

}  // namespace korvane
