// korvane-bench ftp: 1 GiB and 10,000 small files from a server on this machine, by cFTP as the
// starter settings have it, and by libcurl alone with one connection, by turns. Both bring the
// large file, and the folder of the small ones, to the disk.
#include "bench/bench_ftp.h"

#include <curl/curl.h>
#include <fcntl.h>
#include <unistd.h>

#include "bench/bench.h"
#include "ftp/folder_transfer.h"
#include "platform/machine/system_clock.h"
#include "platform/net/ftp_curl.h"
#include "tests/ftp/real_server.h"

namespace korvane {
namespace {

constexpr qint64 kLarge = qint64{1} << 30;
constexpr int kSmall = 10'000, kTurns = 3;
constexpr int kBareSmall = 20;  // of them by libcurl alone, which can need a second for each
constexpr double kAim = 0.8;

void fill(const QString& folder) {
  QFile large(folder + u"/large"_s);
  if (!large.open(QIODevice::WriteOnly)) throw std::runtime_error("no large file");
  const QByteArray block(1 << 20, 'k');
  for (qint64 at = 0; at < kLarge; at += block.size()) large.write(block);
  QDir().mkpath(folder + u"/small"_s);
  for (int i = 0; i < kSmall; ++i) {
    QFile small(folder + u"/small/file %1.txt"_s.arg(i));
    if (!small.open(QIODevice::WriteOnly)) throw std::runtime_error("no small file");
    small.write(QByteArray(500 + i % 1000, 's'));
  }
}

class BareCurl {
 public:
  explicit BareCurl(const RealServer& server)
      : base_("ftp://" + server.address().toUtf8() + "/%2F" + server.folder.mid(1).toUtf8() + '/') {
    curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, &BareCurl::write);
    curl_easy_setopt(easy_, CURLOPT_BUFFERSIZE, 256L << 10);
    curl_easy_setopt(easy_, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_SINGLECWD));
  }
  ~BareCurl() { curl_easy_cleanup(easy_); }
  BareCurl(const BareCurl&) = delete;

  bool get(const QByteArray& name, const QString& to, bool sync) {
    int file = ::open(to.toUtf8().constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    curl_easy_setopt(easy_, CURLOPT_URL, (base_ + name).constData());
    curl_easy_setopt(easy_, CURLOPT_WRITEDATA, &file);
    const bool good = curl_easy_perform(easy_) == CURLE_OK;
    if (sync) ::fsync(file);
    ::close(file);
    return good;
  }
  // The names come with the listing, as ours does it.
  bool getSmall(const QString& to) {
    if (!get("small/", to + u"/listing"_s, false)) return false;
    QFile listing(to + u"/listing"_s);
    if (!listing.open(QIODevice::ReadOnly)) return false;
    int fetched = 0;
    for (const QByteArray& line : listing.readAll().split('\n')) {
      if (fetched == kBareSmall) break;
      const qsizetype at = line.indexOf("file ");
      if (at < 0) continue;
      const QByteArray name = line.mid(at).trimmed();
      if (!get("small/" + name.toPercentEncoding(), to + u'/' + QString::fromUtf8(name), false))
        return false;
      ++fetched;
    }
    const int folder = ::open(to.toUtf8().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ::syncfs(folder);
    ::close(folder);
    return true;
  }

 private:
  static size_t write(const char* bytes, size_t size, size_t count, void* to) {
    const ssize_t put = ::write(*static_cast<int*>(to), bytes, size * count);
    return put < 0 ? 0 : static_cast<size_t>(put);
  }
  CURL* easy_ = curl_easy_init();
  QByteArray base_;
};

}  // namespace

int benchFtp(const QStringList&) {
  const RealServer server;
  fill(server.folder);
  const QTemporaryDir here;
  MeasuringPump pump;
  SystemClock clock;
  cFTP ftp({pump, clock, [] { return std::make_unique<FtpCurl>(); }, [] { return true; }});
  qint64 events = 0;
  ftp.FileTransferProgress = [&](qint64, qint64) { ++events; };
  ftp.SetTransferBinary();
  ftp.SetModePassive();
  BareCurl bare(server);
  bool right = ftp.OpenConnection(server.address(), {}, {}) && ftp.SetFTPDirectory(server.folder);
  double large = 1e9, bareLarge = 1e9, small = 1e9, bareSmall = 1e9, gap = 0;
  for (int turn = 0; turn < kTurns; ++turn) {
    const QString folder = here.filePath(QString::number(turn));
    QDir().mkpath(folder + u"/bare"_s);
    bareLarge = std::min(
        bareLarge, fastest(1, [&] { right = bare.get("large", folder + u"/b"_s, true) && right; }));
    QFile::remove(folder + u"/b"_s);
    events = 0;
    pump.start();
    large = std::min(large, fastest(1, [&] {
                       right = ftp.FTPDownloadFile(folder + u"/o"_s, u"large"_s) && right;
                     }));
    gap = std::max(gap, pump.maxGapMs());
    right = right && events == kLarge / cFTP::kBlock + 1 &&
            QFileInfo(folder + u"/o"_s).size() == kLarge;
    QFile::remove(folder + u"/o"_s);
    bareSmall = std::min(bareSmall,
                         fastest(1, [&] { right = bare.getSmall(folder + u"/bare"_s) && right; }));
    FolderTransfer transfer(ftp, [](int, int, const QString&) {});
    small = std::min(small, fastest(1, [&] {
                       right = transfer.download((server.folder + u"/small"_s).toUtf8(),
                                                 folder + u"/ours"_s) &&
                               right;
                     }));
    right = right && transfer.files() == kSmall;
  }
  Json json("ftp");
  json.add("large_s", large).add("bare_large_s", bareLarge).add("large_speed", bareLarge / large);
  json.add("max_gap_ms", gap);
  const double smallMs = small * 1000 / kSmall, bareMs = bareSmall * 1000 / kBareSmall;
  json.add("small_ms", smallMs).add("bare_small_ms", bareMs).add("small_speed", bareMs / smallMs);
  json.add("right", right).print();
  return right && bareLarge / large >= kAim && bareMs / smallMs >= kAim ? 0 : 1;
}

}  // namespace korvane
