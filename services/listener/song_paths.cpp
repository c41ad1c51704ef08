#include "services/listener/song_paths.h"

#include "platform/files/contained_file.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr qsizetype kLongestPath = 2000, kMostFolders = 64, kMostPlaces = 64;

// A playlist or a text that the player would follow to other files is no song.
constexpr QLatin1StringView kEndings[] = {
    ".mp3"_L1, ".wma"_L1, ".wav"_L1, ".flac"_L1, ".ogg"_L1,  ".oga"_L1, ".opus"_L1,
    ".m4a"_L1, ".aac"_L1, ".mp2"_L1, ".aif"_L1,  ".aiff"_L1, ".ape"_L1, ".wv"_L1,
};

bool isSong(const QString& name) {
  return std::any_of(std::begin(kEndings), std::end(kEndings), [&](QLatin1StringView ending) {
    return name.endsWith(ending, Qt::CaseInsensitive);
  });
}

// Whether a name on disk, which may be written with escapes, is one name and no way upwards.
bool isOneName(const QString& part) {
  const QByteArray name = fromPath(part);
  return name != ".." && !name.contains('/') && !name.contains('\0');
}

// Its folders and name; empty when one of them leads upwards.
QStringList partsOf(const QString& path) {
  QStringList parts;
  for (const QString& part : FileSystem::slashed(path).split(u'/', Qt::SkipEmptyParts)) {
    if (!isOneName(part)) return {};
    if (part != "."_L1) parts << part;
  }
  return parts.size() <= kMostFolders ? parts : QStringList();
}

bool beginsWith(const QStringList& parts, const QStringList& first) {
  if (first.size() >= parts.size()) return false;
  return std::equal(first.begin(), first.end(), parts.begin(), [](const auto& a, const auto& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
  });
}

QString joined(const QStringList& parts, qsizetype from) {
  return parts.mid(from).join(u'/');
}

}  // namespace

QList<SongPlace> songPlaces(const SongRoots& roots, const QString& path) {
  const QStringList parts = path.size() <= kLongestPath ? partsOf(path) : QStringList();
  if (parts.isEmpty() || !isSong(parts.last())) return {};
  QList<SongPlace> places;
  const auto add = [&](const QString& root, qsizetype from) {
    const SongPlace place{root, joined(parts, from)};
    if (places.size() < kMostPlaces && !places.contains(place)) places << place;
  };
  for (const SongRoots::Map& map : roots.maps)
    if (const QStringList first = partsOf(map.from); beginsWith(parts, first))
      add(map.to, first.size());
  for (const QString& root : roots.roots)
    if (const QStringList first = partsOf(root); beginsWith(parts, first)) add(root, first.size());
  for (qsizetype from = 0; from < parts.size(); ++from)
    for (const QString& root : roots.roots) add(root, from);
  return places;
}

std::optional<QString> findSongBelow(const FileSystem& files, const SongRoots& roots,
                                     const QString& path) {
  for (const SongPlace& place : songPlaces(roots, path)) {
    const std::optional<QString> found = files.resolve(place.root + u'/' + place.below);
    if (!found) continue;
    if (const auto song = containedFile(place.root, *found)) return song;
  }
  return std::nullopt;
}

}  // namespace korvane
