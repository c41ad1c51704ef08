// The reader of a disc image with any bytes for its CUE sheet: it ends, and a table that it takes
// has tracks in order, each within the disc, that can be read. The input is the sheet; the BIN
// beside it has 600 sectors.
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>
#include <optional>

#include "platform/disc/disc_reader_cdio.h"

namespace {

constexpr int kSectors = 600;

struct Image {
  // In memory where the system has such a place: each input writes the sheet.
  QTemporaryDir folder{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/cue")
                                                                 : QDir::tempPath()};
  Image() {
    QFile bin(folder.filePath(QStringLiteral("disc.bin")));
    if (!bin.open(QIODevice::WriteOnly)) std::abort();
    bin.write(QByteArray(qsizetype{kSectors} * korvane::kSectorBytes, 'x'));
    std::atexit([] { shared().reset(); });
  }
  static std::optional<Image>& shared() {
    static std::optional<Image> image;
    return image;
  }
};

}  // namespace

// libcdio does not give back a few bytes of some sheets that it refuses.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libcdio";
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  if (!Image::shared()) Image::shared().emplace();
  const QString path = Image::shared()->folder.filePath(QStringLiteral("disc.cue"));
  QFile sheet(path);
  if (!sheet.open(QIODevice::WriteOnly)) std::abort();
  sheet.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
  sheet.close();
  DiscReaderCdio reader;
  const DiscLook look = reader.look(path, {});
  if (look.state != DiscLook::Ready) {
    if (look.trouble.isEmpty()) std::abort();
    return 0;
  }
  if (look.disc.tracks.empty() || look.disc.tracks.size() > 99) std::abort();
  int end = 0;
  for (const DiscTrack& track : look.disc.tracks) {
    if (track.first < end || track.sectors <= 0) std::abort();
    if (track.first > 1'000'000 || track.sectors > 1'000'000) std::abort();
    end = track.first + track.sectors;
  }
  if (end > kSectors && look.trouble.isEmpty()) std::abort();
  const auto sectors = reader.sectors(path);
  QByteArray sector(kSectorBytes, 0);
  if (sectors)
    for (const int at : {0, end - 1, end}) sectors->read(at, 1, sector.data());
  return 0;
}
