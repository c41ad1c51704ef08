// korvane-bench listener LISTENER FILE: the program korvane-listener beside bare libVLC, from a
// PLAY to the first sound; its share of a core with 50 consoles; what 1,000 connections that are
// lost again leave behind.
#include <netinet/in.h>
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
#include "platform/vlc/vlc_library.h"

namespace korvane {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
constexpr int kPlays = 61, kConsoles = 50, kConnections = 1000, kWarm = 200;
constexpr auto kCpuTime = 10s;

double ms(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

double middle(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2), times.end());
  return times[times.size() / 2];
}

// The file that libVLC's file output writes its sound into. A plain one: a full pipe would block
// the output, and with it libVLC's stop.
class Ear {
 public:
  explicit Ear(const QString& path) : path_(path.toLocal8Bit()) {}
  QString arguments() const {
    return u"--aout=afile --no-audiofile-wav --audiofile-file="_s + QString::fromLocal8Bit(path_);
  }
  // From `begin` to the first byte, in ms; 0 when none comes.
  double firstSound(Clock::time_point begin) const {
    while (size() == 0) {
      if (Clock::now() - begin > 5s) return 0;
      std::this_thread::sleep_for(50us);
    }
    return ms(Clock::now() - begin);
  }
  void silence() const {  // no more comes; what came is forgotten
    off_t before = -1;
    for (off_t now = size(); now != before; now = size()) {
      before = now;
      std::this_thread::sleep_for(30ms);
    }
    truncate(path_.constData(), 0);
  }

 private:
  off_t size() const {
    struct stat status {};
    return stat(path_.constData(), &status) == 0 ? status.st_size : 0;
  }

  QByteArray path_;
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
  // A record as it is written down: | for 0 between its fields, $ for 1 at its end.
  static QByteArray record(QByteArray text) { return text.replace('|', '\0').replace('$', '\1'); }
  void say(const QByteArray& written) const {
    const QByteArray text = record(written);
    stands_ &= send(socket_, text.constData(), static_cast<size_t>(text.size()), MSG_NOSIGNAL) ==
               text.size();
  }
  QByteArray hear() const {  // what has come
    QByteArray bytes(65536, '\0');
    const ssize_t got = recv(socket_, bytes.data(), 65536, MSG_DONTWAIT);
    return bytes.first(std::max<ssize_t>(got, 0));
  }
  bool hears(const char* written) const {  // within 5 s
    const QByteArray word = record(written);
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
    process_.start(program, {u"--as-root"_s, u"--port"_s, u"0"_s, u"--root"_s, root,
                             u"--connections-per-address"_s, u"128"_s});
    process_.setReadChannel(QProcess::StandardError);
    QByteArray said;
    while (port_ == 0 && process_.waitForReadyRead(10'000)) {
      said += process_.readAllStandardError();
      static const QRegularExpression line(u" port (\\d+)\n"_s);
      port_ = line.match(QString::fromUtf8(said)).captured(1).toUShort();
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

// libVLC in this process, and nothing besides.
class BarePlayer {
 public:
  explicit BarePlayer(const Ear& ear) {
    if (!vlc_) return;
    std::vector<QByteArray> words{"--no-video", "--no-spu", "--no-lua", "--quiet", "--no-xlib"};
    for (const QString& word : ear.arguments().split(u' ')) words.push_back(word.toLocal8Bit());
    std::vector<const char*> pointers;
    for (const QByteArray& word : words) pointers.push_back(word.constData());
    instance_ = vlc_->libvlc_new(static_cast<int>(pointers.size()), pointers.data());
    if (instance_) player_ = vlc_->libvlc_media_player_new(instance_);
  }
  ~BarePlayer() {
    if (player_) vlc_->libvlc_media_player_release(player_);
  }
  BarePlayer(const BarePlayer&) = delete;
  bool stands() const { return player_; }
  void play(const QString& file) const {
    libvlc_media_t* media = vlc_->libvlc_media_new_path(instance_, file.toLocal8Bit().constData());
    vlc_->libvlc_media_player_set_media(player_, media);
    vlc_->libvlc_media_player_play(player_);
    vlc_->libvlc_media_release(media);
  }
  void stop() const { vlc_->libvlc_media_player_stop(player_); }

 private:
  const VlcLibrary* vlc_ = VlcLibrary::open(nullptr);
  libvlc_instance_t* instance_ = nullptr;
  libvlc_media_player_t* player_ = nullptr;
};

struct Plays {
  double ours = 0, bare = 0;  // ms to the first sound, the middle of kPlays; 0 when none came
};

// By turns, so that what else the machine does meets both.
Plays plays(const QString& program, const QString& file, const QTemporaryDir& folder) {
  const Ear ourEar(folder.filePath(u"ours"_s)), bareEar(folder.filePath(u"bare"_s));
  const Listener listener(program, QFileInfo(file).path(), ourEar.arguments());
  const Peer console(listener.port());
  const BarePlayer player(bareEar);
  if (!player.stands()) return {};
  std::vector<double> ours, bare;
  for (int i = -2; i < kPlays; ++i) {  // two to warm up
    Clock::time_point begin = Clock::now();
    console.say("MUSIC|PLAY|" + file.toUtf8() + "|song$");
    const double ourTime = ourEar.firstSound(begin);
    console.say("MUSIC|STOP$");
    console.hears("MEDIAPLAYERSTATE|0");
    ourEar.silence();
    begin = Clock::now();
    player.play(file);
    const double bareTime = bareEar.firstSound(begin);
    player.stop();
    bareEar.silence();
    if (ourTime <= 0 || bareTime <= 0) return {};
    if (i < 0) continue;
    ours.push_back(ourTime);
    bare.push_back(bareTime);
  }
  return {middle(ours), middle(bare)};
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
  const auto [ours, bare] = plays(program, file, folder);
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
