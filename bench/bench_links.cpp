// korvane-bench links HOME: a console at HOME and a Music Listener that a thread plays: from the
// press on a song to the bytes of PLAY at the Listener; the longest gap of the event loop while the
// Listener floods; what 1,000 links that are lost again leave behind.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QTimer>

#include <atomic>
#include <thread>

#include "bench/bench.h"
#include "bench/bench_console.h"
#include "bench/bench_music.h"
#include "platform/net/winsock_qt.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;
constexpr int kPresses = 100, kWarm = 200, kLosses = 1000;
constexpr qsizetype kFloodBytes = 100'000;  // every 10 ms: 10 MB/s
constexpr auto kFloodTime = 3s;

// The Listener's end: takes one connection after the other.
class Peer {
 public:
  Peer() : door_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (::bind(door_, plain, size) || ::listen(door_, 8) || ::getsockname(door_, plain, &size))
      throw std::runtime_error("no port to listen at");
    port = ntohs(address.sin_port);
  }
  ~Peer() {
    drop();
    ::close(door_);
  }
  Peer(const Peer&) = delete;

  void take() { connection_ = ::accept4(door_, nullptr, nullptr, SOCK_CLOEXEC); }
  void drop() {
    if (connection_ >= 0) ::close(std::exchange(connection_, -1));
  }
  void say(const QByteArray& bytes) const {
    for (qsizetype at = 0; at < bytes.size();) {
      const ssize_t put = ::send(connection_, bytes.constData() + at,
                                 static_cast<size_t>(bytes.size() - at), MSG_NOSIGNAL);
      if (put <= 0) return;
      at += put;
    }
  }
  // When the bytes of a PLAY came; nothing within a second.
  std::optional<Clock::time_point> hearsPlay() const {
    QByteArray heard;
    char block[4096];
    for (pollfd polled{connection_, POLLIN, 0}; ::poll(&polled, 1, 1000) == 1;) {
      const ssize_t got = ::recv(connection_, block, sizeof block, 0);
      if (got <= 0) return std::nullopt;
      heard.append(block, got);
      if (heard.contains(QByteArray("PLAY\0", 5))) return Clock::now();
    }
    return std::nullopt;
  }

  quint16 port = 0;

 private:
  int door_, connection_ = -1;
};

double ms(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

class Links {
 public:
  explicit Links(const QString& home)
      : bench_(home, [] { return std::make_unique<WinsockQt>(); }), console(bench_.console) {}

  bool start() {
    if (!console.SubMain()) return false;
    console.desk.tabs.imgTabs_Click(kMusicTab);
    console.library.browsing.showGrid(MusicList::AllSongs);
    console.desk.state.gLocalListener = false;
    console.desk.state.gMusicListenerIP = u"127.0.0.1"_s;
    console.desk.state.gMusicListenerPort = QString::number(peer.port);
    return true;
  }
  // The link to the Listener, with both ends standing.
  bool stand() {
    std::thread taking([this] { peer.take(); });
    console.listener.music.connectAgain();
    const bool stood = until([this] { return linkState() == Winsock::Connected; });
    taking.join();
    return stood;
  }
  bool loseOne(bool halfAnARecord) {
    if (!stand()) return false;
    if (halfAnARecord) peer.say("MUSICDURA");
    peer.drop();
    return until([this] { return linkState() != Winsock::Connected; });
  }
  bool until(const std::function<bool()>& done) { return bench_.pump.wait(5000, done); }
  Winsock::State linkState() const { return console.listener.music.connectionState(); }

  Peer peer;

 private:
  BenchConsole bench_;

 public:
  Console& console;
};

// Each press on another song of the list of all songs, in ms; empty when one was not heard.
std::vector<double> presses(Links& links) {
  std::vector<double> times;
  Grid& songs = dynamic_cast<Grid&>(*links.console.desk.frmMain.find(u"Grid", 5));
  for (int row = 1; row <= std::min(kPresses, songs.maxRows()); ++row) {
    std::optional<Clock::time_point> heard;
    std::atomic<bool> done = false;
    std::thread hearing([&] {
      heard = links.peer.hearsPlay();
      done = true;
    });
    const Clock::time_point begin = Clock::now();
    links.console.desk.frmMain.fire(songs, {.type = Event::DblClick, .column = 1, .row = row});
    links.until([&] { return done.load(); });
    hearing.join();
    if (!heard) return {};
    times.push_back(ms(*heard - begin));
  }
  return times;
}

// The longest time between two turns of the event loop, in ms.
double longestGapInAFlood(Links& links) {
  const QByteArray record(
      "MUSICTIMER\0"
      "1:01\0"
      "61\1",
      20);
  const QByteArray block = record.repeated(kFloodBytes / record.size());
  std::atomic<bool> done = false;
  std::thread flooding([&] {
    for (auto next = Clock::now(), end = next + kFloodTime; next < end; next += 10ms) {
      links.peer.say(block);
      std::this_thread::sleep_until(next + 10ms);
    }
    done = true;
  });
  double longest = 0;
  Clock::time_point before = Clock::now();
  QTimer turn;
  QObject::connect(&turn, &QTimer::timeout, &turn, [&] {
    longest = std::max(longest, ms(Clock::now() - before));
    before = Clock::now();
  });
  turn.start(1);
  while (!done) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  flooding.join();
  return longest;
}

int openFiles() {
  return static_cast<int>(
      QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size());
}

}  // namespace

int benchLinks(const QStringList& arguments) {
  if (arguments.size() != 1) return 2;
  Links links(arguments[0]);
  if (!links.start() || !links.stand()) return 1;
  std::vector<double> times = presses(links);
  const double gap = longestGapInAFlood(links);
  links.peer.drop();
  links.until([&] { return links.linkState() != Winsock::Connected; });

  bool right = !times.empty();
  for (int i = 0; i < kWarm; ++i) right = links.loseOne(i % 2) && right;
  const int files = openFiles();
  const int kib = residentKib();
  for (int i = 0; i < kLosses; ++i) right = links.loseOne(i % 2) && right;
  if (times.empty()) times = {0};
  std::sort(times.begin(), times.end());
  const int filesLeft = openFiles() - files;
  right = right && filesLeft == 0;
  Json("links")
      .add("press_to_play_bytes_ms", times[times.size() / 2])
      .add("press_to_play_bytes_max_ms", times.back())
      .add("flood_longest_gap_ms", gap)
      .add("files_left_by_1000", filesLeft)
      .add("kib_left_by_1000", residentKib() - kib)
      .add("right", right)
      .print();
  return right ? 0 : 1;
}

}  // namespace korvane
