// korvane-bench listener LISTENER FILE: the program korvane-listener beside bare libVLC, from a
// PLAY to the first sound; its share of a core with 50 consoles; what 1,000 connections that are
// lost again leave behind.
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <cstdio>
#include <thread>

#include "bench/bench.h"
#include "bench/bench_music.h"
#include "platform/vlc_library.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
constexpr int kPlays = 15, kConsoles = 50, kConnections = 1000, kWarm = 200;
constexpr auto kCpuTime = 10s;

double ms(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

double middle(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2), times.end());
  return times[times.size() / 2];
}

// A pipe with a name, into which libVLC's file output writes its sound.
class Ear {
 public:
  explicit Ear(const QString& path)
      : path_(path.toLocal8Bit()),
        made_(mkfifo(path_.constData(), 0600) == 0),
        file_(made_ ? open(path_.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC) : -1) {}
  ~Ear() { close(file_); }
  QString arguments() const {
    return u"--aout=afile --no-audiofile-wav --audiofile-file="_s + QString::fromLocal8Bit(path_);
  }
  // From `begin` to the first byte, in ms; 0 when none comes.
  double firstSound(Clock::time_point begin) const {
    pollfd polled{file_, POLLIN, 0};
    return poll(&polled, 1, 5000) == 1 ? ms(Clock::now() - begin) : 0;
  }
  void silence() const {  // what came is forgotten
    char bytes[65536];
    do {
      while (read(file_, bytes, sizeof bytes) > 0) continue;
      std::this_thread::sleep_for(30ms);
    } while (read(file_, bytes, sizeof bytes) > 0);
  }

 private:
  QByteArray path_;
  bool made_;
  int file_;
};

// A console: a plain socket.
class Peer {
 public:
  explicit Peer(quint16 port) : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    stands_ = connect(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  }
  ~Peer() { close(socket_); }
  Peer(const Peer&) = delete;
  bool stands() const { return stands_; }
  void say(QByteArray text) const {
    text.replace('|', '\0').replace('$', '\1');
    stands_ &= write(socket_, text.constData(), static_cast<size_t>(text.size())) == text.size();
  }
  QByteArray hear() const {  // what has come
    QByteArray bytes(65536, '\0');
    const ssize_t got = recv(socket_, bytes.data(), 65536, MSG_DONTWAIT);
    return bytes.first(std::max<ssize_t>(got, 0));
  }
  bool hears(const char* word) const {  // within 5 s
    QByteArray all;
    for (int i = 0; i < 500 && !all.contains(word); ++i, std::this_thread::sleep_for(10ms))
      all += hear();
    return all.contains(word);
  }

 private:
  int socket_;
  mutable bool stands_ = false;
};

// The program at work on a port of its own.
class Listener {
 public:
  Listener(const QString& program, const QString& root, const QString& vlc) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"KORVANE_VLC_ARGS"_s, vlc);
    process_.setProcessEnvironment(environment);
    process_.start(program, {u"--as-root"_s, u"--port"_s, u"0"_s, u"--root"_s, root});
    QByteArray told;
    while (port_ == 0 && process_.waitForReadyRead(10'000)) {
      told += process_.readAllStandardError() + process_.readAllStandardOutput();
      process_.setReadChannel(QProcess::StandardError);
      static const QRegularExpression line(u" port (\\d+)\n"_s);
      port_ = line.match(QString::fromUtf8(told)).captured(1).toUShort();
    }
  }
  ~Listener() {
    process_.terminate();
    process_.waitForFinished(5000);
  }
  quint16 port() const { return port_; }

  double cpuSeconds() const {
    const QByteArrayList fields = proc("stat").split(')').last().trimmed().split(' ');
    return (fields.value(11).toDouble() + fields.value(12).toDouble()) /
           static_cast<double>(sysconf(_SC_CLK_TCK));
  }
  int files() const {
    return static_cast<int>(QDir(path("fd")).entryList(QDir::AllEntries | QDir::System).size());
  }
  double residentKib() const {
    return proc("statm").split(' ').value(1).toDouble() *
           static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
  }

 private:
  QString path(const char* name) const {
    return u"/proc/%1/"_s.arg(process_.processId()) + QString::fromLatin1(name);
  }
  QByteArray proc(const char* name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QProcess process_;
  quint16 port_ = 0;
};

double listenerPlays(const QString& program, const QString& file, const Ear& ear) {
  const Listener listener(program, QFileInfo(file).path(), ear.arguments());
  const Peer console(listener.port());
  std::vector<double> times;
  for (int i = -2; i < kPlays; ++i) {  // two to warm up
    const Clock::time_point begin = Clock::now();
    console.say("MUSIC|PLAY|" + file.toUtf8() + "|song$");
    const double time = ear.firstSound(begin);
    if (time <= 0) return 0;
    if (i >= 0) times.push_back(time);
    console.say("MUSIC|STOP$");
    console.hears("MEDIAPLAYERSTATE");
    ear.silence();
  }
  return middle(times);
}

double barePlays(const QString& file, const Ear& ear) {
  QString error;
  const VlcLibrary* vlc = VlcLibrary::open(&error);
  if (!vlc) return 0;
  std::vector<QByteArray> words{"--no-video", "--no-spu", "--no-lua", "--quiet", "--no-xlib"};
  for (const QString& word : ear.arguments().split(u' ')) words.push_back(word.toLocal8Bit());
  std::vector<const char*> pointers;
  for (const QByteArray& word : words) pointers.push_back(word.constData());
  libvlc_instance_t* instance = vlc->libvlc_new(static_cast<int>(pointers.size()), pointers.data());
  libvlc_media_player_t* player = vlc->libvlc_media_player_new(instance);
  std::vector<double> times;
  for (int i = -2; i < kPlays; ++i) {
    const Clock::time_point begin = Clock::now();
    libvlc_media_t* media = vlc->libvlc_media_new_path(instance, file.toLocal8Bit().constData());
    vlc->libvlc_media_player_set_media(player, media);
    vlc->libvlc_media_player_play(player);
    const double time = ear.firstSound(begin);
    if (i >= 0) times.push_back(time);
    vlc->libvlc_media_release(media);
    vlc->libvlc_media_player_stop(player);
    ear.silence();
  }
  vlc->libvlc_media_player_release(player);
  vlc->libvlc_release(instance);
  return middle(times);
}

// Percent of a core while a song plays for so many consoles; below 0 when one hears no time.
double share(const QString& program, const QString& file, int consoles) {
  const Listener listener(program, QFileInfo(file).path(), u"--aout=adummy"_s);
  std::vector<std::unique_ptr<Peer>> peers;
  for (int i = 0; i < consoles; ++i) peers.push_back(std::make_unique<Peer>(listener.port()));
  peers[0]->say("MUSIC|PLAY|" + file.toUtf8() + "|song$");
  bool heard = peers[0]->hears("MUSICTIMER");
  const double before = listener.cpuSeconds();
  std::this_thread::sleep_for(kCpuTime);
  const double used = listener.cpuSeconds() - before;
  for (const auto& peer : peers) heard &= peer->hear().count("MUSICTIMER") >= 8;
  return heard ? 100 * used / std::chrono::duration<double>(kCpuTime).count() : -1;
}

struct Losses {
  int files = 0;
  double kib = 0;
  bool right = true;
};

Losses connectAndLose(const QString& program, const QString& root) {
  const Listener listener(program, root, u"--aout=adummy"_s);
  Losses losses;
  const auto lose = [&](int times) {
    for (int i = 0; i < times; ++i) {
      const Peer peer(listener.port());
      peer.say(i % 3 == 0 ? "MUSIC|STATUS$" : "MUSIC|PL");
      if (i % 3 == 0) losses.right &= peer.hears("MEDIAPLAYERSTATE");
      losses.right &= peer.stands();
    }
    std::this_thread::sleep_for(500ms);
  };
  lose(kWarm);
  const int files = listener.files();
  const double kib = listener.residentKib();
  lose(kConnections);
  losses.files = listener.files() - files;
  losses.kib = listener.residentKib() - kib;
  return losses;
}

}  // namespace

int benchListener(const QStringList& arguments) {
  if (arguments.size() != 2) {
    std::fprintf(stderr, "korvane-bench listener LISTENER FILE\n");
    return 2;
  }
  const QString& program = arguments[0];
  const QString file = QFileInfo(arguments[1]).canonicalFilePath();
  const QTemporaryDir folder;
  const Ear ear(folder.filePath(u"sound"_s));
  const double bare = barePlays(file, ear), ours = listenerPlays(program, file, ear);
  const double one = share(program, file, 1), fifty = share(program, file, kConsoles);
  const Losses losses = connectAndLose(program, QFileInfo(file).path());
  const bool right =
      bare > 0 && ours > 0 && one >= 0 && fifty >= 0 && losses.right && losses.files == 0;
  Json("listener")
      .add("play_to_sound_ms", ours)
      .add("bare_ms", bare)
      .add("ratio", ours / bare)
      .add("one_console_cpu_percent", one)
      .add("fifty_consoles_cpu_percent", fifty)
      .add("files_left_by_1000", losses.files)
      .add("kib_left_by_1000", losses.kib)
      .add("right", right)
      .print();
  return right ? 0 : 1;
}

}  // namespace korvane
