#include "bench/bench_pictures.h"

#include <fcntl.h>
#include <turbojpeg.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <atomic>
#include <thread>

#include "bench/bench.h"
#include "bench/made_album.h"
#include "platform/files/disk_file_system.h"
#include "platform/imaging/picture_codecs.h"

namespace korvane {
namespace {

constexpr double kAim = 1.2;  // times the bare work

QByteArray readWhole(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Each path once, on as many threads as there are cores.
void onAllCores(const QStringList& paths, const std::function<void(const QString&)>& work) {
  std::atomic<qsizetype> next = 0;
  std::vector<std::jthread> threads;
  for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
    threads.emplace_back([&] {
      for (qsizetype at = next++; at < paths.size(); at = next++) work(paths[at]);
    });
}

// Reads a file and decodes it by the smallest scale that is at least width x height. False when it
// cannot.
bool bareDecode(const QString& path, int width, int height) {
  const QByteArray bytes = readWhole(path);
  const auto* data = reinterpret_cast<const uchar*>(bytes.constData());
  const auto size = static_cast<unsigned long>(bytes.size());
  const tjhandle turbo = tjInitDecompress();
  int whole[4]{}, count = 0;
  tjDecompressHeader3(turbo, data, size, &whole[0], &whole[1], &whole[2], &whole[3]);
  const tjscalingfactor* factors = tjGetScalingFactors(&count);
  int w = whole[0], h = whole[1];
  for (int i = 0; i < count; ++i) {
    const int sw = TJSCALED(whole[0], factors[i]), sh = TJSCALED(whole[1], factors[i]);
    if (sw >= width && sh >= height && sw < w) w = sw, h = sh;
  }
  const auto pixels =
      std::make_unique_for_overwrite<uchar[]>(static_cast<size_t>(w) * static_cast<size_t>(h) * 4);
  const bool right = tjDecompress2(turbo, data, size, pixels.get(), w, 0, h, TJPF_BGRA, 0) == 0;
  tjDestroy(turbo);
  return right;
}

bool bareTurn(const QString& path) {
  const QByteArray bytes = readWhole(path);
  const tjhandle turbo = tjInitTransform();
  tjtransform transform{};
  transform.op = TJXOP_ROT90;
  transform.options = TJXOPT_PERFECT;
  uchar* made = nullptr;
  unsigned long size = 0;
  bool right =
      tjTransform(turbo, reinterpret_cast<const uchar*>(bytes.constData()),
                  static_cast<unsigned long>(bytes.size()), 1, &made, &size, &transform, 0) == 0;
  const int file = ::open(path.toUtf8(), O_WRONLY | O_TRUNC | O_CLOEXEC);
  right = right && ::write(file, made, size) == static_cast<ssize_t>(size) && ::fsync(file) == 0;
  ::close(file);
  tjFree(made);
  tjDestroy(turbo);
  return right;
}

int report(Json json, double ours, double bare, bool right) {
  json.add("seconds", ours)
      .add("bare_s", bare)
      .add("ratio", ours / bare)
      .add("right", right && ours <= kAim * bare)
      .print();
  return right && ours <= kAim * bare ? 0 : 1;
}

}  // namespace

int benchThumbs(const QStringList&) {
  constexpr int kPictures = 200, kSide = 120, kQuality = 60, kRuns = 3;
  const MadeAlbum album(kPictures, 4000, 3000);
  const PictureCodecs imaging;
  std::atomic<bool> right = true;
  double ours = 1e9, bare = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    bare = std::min(bare, fastest(1, [&] {
                      onAllCores(album.paths(), [&](const QString& path) {
                        if (!bareDecode(path, kSide, kSide * 3 / 4)) right = false;
                      });
                    }));
    ours = std::min(ours, fastest(1, [&] {
                      onAllCores(album.paths(), [&](const QString& path) {
                        const auto loaded = imaging.load(path, {.width = kSide, .height = kSide});
                        if (!loaded.pixels || imaging.jpeg(*loaded.pixels, kQuality).isEmpty())
                          right = false;
                      });
                    }));
  }
  return report(Json("thumbs").add("pictures", kPictures), ours, bare, right);
}

int benchTurns(const QStringList&) {
  constexpr int kPictures = 50, kRuns = 3;
  const MadeAlbum album(MadeAlbum::kDistinct, 4032, 3024);
  std::vector<QByteArray> files;
  for (const QString& path : album.paths()) files.push_back(readWhole(path));
  const QTemporaryDir folder;
  QStringList paths;
  for (int i = 0; i < kPictures; ++i) {
    paths.push_back(folder.filePath(u"%1.jpg"_s.arg(i)));
    MadeAlbum::save(paths.back(), files[static_cast<size_t>(i) % files.size()]);
  }
  const PictureCodecs imaging;
  DiskFileSystem disk;
  bool right = true;
  double ours = 1e9, bare = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    bare = std::min(bare, fastest(1, [&] {
                      for (const QString& path : paths) right = bareTurn(path) && right;
                    }));
    ours = std::min(ours, fastest(1, [&] {
                      for (const QString& path : paths) {
                        const QByteArray made = imaging.turned(path, 90, true, true, nullptr);
                        right = !made.isEmpty() && disk.replace(path, made) && right;
                      }
                    }));
  }
  return report(Json("turns").add("pictures", kPictures), ours, bare, right);
}

int benchShowPicture(const QStringList&) {
  constexpr int kRuns = 9;
  const MadeAlbum album(1, 6000, 4000);
  const PictureCodecs imaging;
  const QString& path = album.paths().front();
  bool right = true;
  const double bare = median(kRuns, [&] { right = bareDecode(path, 1200, 800) && right; });
  const double ours = median(
      kRuns, [&] { right = imaging.load(path, {.width = 1280, .height = 800}).pixels && right; });
  return report(Json("showpicture"), ours, bare, right);
}

}  // namespace korvane
