#include "platform/video/dvd_check.h"

#include <dlfcn.h>

#include <QDir>
#include <QtEndian>
#include <filesystem>
#include <fstream>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr QByteArrayView kVideoManager("DVDVIDEO-VMG");
constexpr size_t kMostTitles = 99;
constexpr qsizetype kLastSectorAt = 0x1c;  // of the file's, 32 bits, the first being 0

// Of a sector of MPEG-2 program stream: the packet behind the pack's header of 14 bytes.
constexpr qsizetype kStreamIdAt = 0x11, kScramblingAt = 0x14;

namespace fs = std::filesystem;

fs::path onDisk(QStringView path) {
  return fs::path(fromPath(path).toStdString());
}

QString asText(const fs::path& path) {
  return toPath(QByteArray::fromStdString(path.native()));
}

// The entry of that name in letters of either case; empty without one.
fs::path entryOf(const fs::path& folder, QStringView name) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error))
    if (foldedName(asText(entry->path().filename())) == foldedName(name)) return entry->path();
  return {};
}

// The beginning of each title's film, as VTS_01_1.VOB; at least one path, empty on a disc without.
std::vector<fs::path> filmsIn(const fs::path& folder) {
  std::vector<fs::path> films;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const QString name = foldedName(asText(entry->path().filename()));
    if (name.startsWith(foldedName(u"vts_")) && name.endsWith(foldedName(u"_1.vob")) &&
        films.size() < kMostTitles)
      films.push_back(entry->path());
  }
  if (films.empty()) films.emplace_back();
  return films;
}

bool isFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

// Up to so many bytes from its beginning; none when it cannot be read.
QByteArray beginningOf(const fs::path& file, qsizetype bytes) {
  QByteArray read(bytes, Qt::Uninitialized);
  std::ifstream stream(file, std::ios::binary);
  stream.read(read.data(), bytes);
  read.truncate(stream.gcount());
  return read;
}

bool scrambled(QByteArrayView sector) {
  const auto at = [sector](qsizetype i) { return static_cast<uchar>(sector[i]); };
  if (sector.size() <= kScramblingAt || !sector.startsWith(QByteArrayView("\0\0\1\xba", 4)))
    return false;
  const uchar stream = at(kStreamIdAt);
  const bool soundOrPicture = stream == 0xbd || (stream >= 0xc0 && stream <= 0xef);
  return soundOrPicture && (at(kScramblingAt) & 0xc0) == 0x80 && (at(kScramblingAt) & 0x30) != 0;
}

QString driveObstacle(const DvdDriveLook& drive, bool decrypts) {
  switch (drive.state) {
    case DvdDriveLook::NoDrive:
      return u"This machine has no DVD drive."_s;
    case DvdDriveLook::NoDisc:
      return u"There is no disc in the DVD drive."_s;
    case DvdDriveLook::Disc:
      break;
  }
  if (drive.region > 0 && (drive.forbidden >> (drive.region - 1) & 1))
    return u"The disc in the DVD drive is made for another region than %1, that of the drive."_s
        .arg(drive.region);
  if (drive.encrypted && !decrypts)
    return u"The disc in the DVD drive is encrypted, and libdvdcss, which could read it, is not "
           "installed."_s;
  return {};
}

}  // namespace

QString dvdObstacle(const DvdBytes& bytes, bool decrypts) {
  if (!bytes.menu.startsWith(
          kVideoManager.first(std::min(bytes.menu.size(), kVideoManager.size()))))
    return u"its VIDEO_TS.IFO is none of a DVD"_s;
  const QString cut = u"its VIDEO_TS.IFO is cut short"_s;
  if (bytes.menu.size() < kDvdSector) return cut;
  const qint64 last = qFromBigEndian<quint32>(bytes.menu.constData() + kLastSectorAt);
  if (bytes.menuBytes < (last + 1) * kDvdSector) return cut;
  for (qsizetype at = 0; !decrypts && at < bytes.film.size(); at += kDvdSector)
    if (scrambled(QByteArrayView(bytes.film).sliced(at)))
      return u"it is encrypted, and libdvdcss, which could read it, is not installed"_s;
  return {};
}

QString dvdTrouble(const QString& path, const DvdDriveLook& drive, bool decrypts, QString* folder) {
  if (path.isEmpty()) {
    *folder = drive.device;
    return driveObstacle(drive, decrypts);
  }
  const auto because = [&](const QString& why) {
    return u"Cannot play the DVD %1: %2."_s.arg(path, why);
  };
  std::error_code error;
  fs::path directory = onDisk(QDir::cleanPath(path));
  if (!isFolder(directory))
    directory = entryOf(directory.parent_path(), asText(directory.filename()));
  if (fs::is_regular_file(directory, error) || fs::is_block_file(directory, error)) {
    *folder = asText(fs::absolute(directory, error));
    return {};
  }
  if (!isFolder(directory)) return because(u"there is no such folder"_s);
  if (const fs::path below = entryOf(directory, u"video_ts"); isFolder(below)) directory = below;
  if (fs::directory_iterator(directory, error) == fs::directory_iterator())
    return because(error ? u"the folder cannot be read"_s : u"the folder is empty"_s);

  const fs::path menu = entryOf(directory, u"video_ts.ifo");
  if (menu.empty()) return because(u"the folder holds no VIDEO_TS.IFO, so it is no DVD"_s);
  DvdBytes bytes;
  bytes.menu = beginningOf(menu, kDvdSector);
  bytes.menuBytes = static_cast<qint64>(fs::file_size(menu, error));
  if (error) return because(u"its VIDEO_TS.IFO cannot be read"_s);
  for (const fs::path& film : filmsIn(directory)) {
    if (!film.empty()) bytes.film = beginningOf(film, kDvdFilmSectors * kDvdSector);
    if (const QString obstacle = dvdObstacle(bytes, decrypts); !obstacle.isEmpty())
      return because(obstacle);
  }
  *folder = asText(fs::absolute(directory, error));
  return {};
}

bool canDecryptDvds() {
  void* library = dlopen("libdvdcss.so.2", RTLD_LAZY | RTLD_LOCAL);
  if (library) dlclose(library);
  return library;
}

}  // namespace korvane
