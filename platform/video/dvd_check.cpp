#include "platform/video/dvd_check.h"

#include <dirent.h>
#include <dlfcn.h>

#include <QFile>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr qint64 kSector = 2048;
constexpr int kSectorsLookedAt =
    64;  // the first ones are often navigation, which is never scrambled
constexpr qsizetype kMostTitleFiles = 99;

// The files of the folder, or of the VIDEO_TS in it, by their names in capitals.
QHash<QByteArray, QByteArray> filesOf(QByteArray folder, bool below = true) {
  QHash<QByteArray, QByteArray> files;
  DIR* directory = opendir(folder.constData());
  if (!directory) return files;
  if (!folder.endsWith('/')) folder += '/';
  while (const dirent* entry = readdir(directory)) {
    const QByteArray name(entry->d_name);
    if (name != "." && name != "..") files[name.toUpper()] = folder + name;
  }
  closedir(directory);
  if (below && !files.contains("VIDEO_TS.IFO") && files.contains("VIDEO_TS"))
    return filesOf(files["VIDEO_TS"], false);
  return files;
}

QByteArray begin(const QByteArray& path, qint64 bytes, qint64* size = nullptr) {
  QFile file(QFile::decodeName(path));
  if (!file.open(QIODevice::ReadOnly)) return {};
  if (size) *size = file.size();
  return file.read(bytes);
}

uchar at(QByteArrayView bytes, qsizetype place) {
  return static_cast<uchar>(bytes[place]);
}

// A pack of MPEG-2 with a packet of sound or pictures whose scrambling bits are set.
bool scrambled(QByteArrayView sector) {
  if (sector.size() < kSector || !sector.startsWith(QByteArrayView("\0\0\1\xba", 4))) return false;
  const uchar stream = at(sector, 0x11);
  return (stream == 0xbd || (stream >= 0xc0 && stream <= 0xef)) && (at(sector, 0x14) & 0x30) != 0;
}

bool titleScrambled(const QByteArray& path) {
  const QByteArray sectors = begin(path, kSectorsLookedAt * kSector);
  for (qsizetype from = 0; from + kSector <= sectors.size(); from += kSector)
    if (scrambled(QByteArrayView(sectors).sliced(from, kSector))) return true;
  return false;
}

}  // namespace

bool readsScrambledDvds() {
  static const bool found = dlopen("libdvdcss.so.2", RTLD_LAZY | RTLD_LOCAL) != nullptr;
  return found;
}

QString dvdFolderFault(const QString& folder) {
  const auto files = filesOf(fromPath(folder));
  const auto says = [&](const QString& reason) {
    return u"Cannot play the DVD in %1: %2"_s.arg(folder, reason);
  };
  if (files.isEmpty()) return says(u"there is no such folder, or nothing in it."_s);
  if (!files.contains("VIDEO_TS.IFO")) return says(u"it has no VIDEO_TS.IFO."_s);
  qint64 size = 0;
  const QByteArray table = begin(files["VIDEO_TS.IFO"], kSector, &size);
  if (!table.startsWith("DVDVIDEO-VMG")) return says(u"its VIDEO_TS.IFO is no table of a DVD."_s);
  qint64 lastSector = 0;  // of the table, a number of four bytes at 0x1c
  for (qsizetype i = 0x1c; i < 0x20 && table.size() == kSector; ++i)
    lastSector = lastSector << 8 | at(table, i);
  if (table.size() < kSector || size < (lastSector + 1) * kSector)
    return says(u"its VIDEO_TS.IFO is cut."_s);
  if (readsScrambledDvds()) return {};
  qsizetype titles = 0;
  for (const auto& [name, path] : files.asKeyValueRange())
    if (name.startsWith("VTS_") && name.endsWith("_1.VOB") && ++titles <= kMostTitleFiles &&
        titleScrambled(path))
      return says(u"it is encrypted, and libdvdcss is not installed."_s);
  return {};
}

}  // namespace korvane
