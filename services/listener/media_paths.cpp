#include "services/listener/media_paths.h"

#include "platform/files/contained_file.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr qsizetype kLongestPath = 2000, kMostFolders = 64, kMostPlaces = 64;

constexpr QLatin1StringView kDiscTable[] = {"/VIDEO_TS.IFO"_L1};

// A file that may be meant: below that root, without "." and "..".
struct Place {
  QString root, below;
  bool operator==(const Place&) const = default;
};

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

// The likeliest first.
QList<Place> placesOf(const MediaRoots& roots, const QString& path) {
  const QStringList parts = path.size() <= kLongestPath ? partsOf(path) : QStringList();
  QList<Place> places;
  const auto add = [&](const QString& root, qsizetype from) {
    const Place place{root, joined(parts, from)};
    if (places.size() < kMostPlaces && !places.contains(place)) places << place;
  };
  for (const MediaRoots::Map& map : roots.maps)
    if (const QStringList first = partsOf(map.from); beginsWith(parts, first))
      add(map.to, first.size());
  for (const QString& root : roots.roots)
    if (const QStringList first = partsOf(root); beginsWith(parts, first)) add(root, first.size());
  for (qsizetype from = 0; from < parts.size(); ++from)
    for (const QString& root : roots.roots) add(root, from);
  return places;
}

}  // namespace

std::optional<QString> findBelow(const FileSystem& files, const MediaRoots& roots,
                                 std::span<const QLatin1StringView> endings, const QString& path) {
  const bool fits = std::any_of(endings.begin(), endings.end(), [&](QLatin1StringView ending) {
    return path.endsWith(ending, Qt::CaseInsensitive);
  });
  if (!fits) return std::nullopt;
  for (const Place& place : placesOf(roots, path)) {
    const std::optional<QString> found = files.resolve(place.root + u'/' + place.below);
    if (!found) continue;
    if (const auto file = containedFile(place.root, *found)) return file;
  }
  return std::nullopt;
}

std::optional<QString> findDiscBelow(const FileSystem& files, const MediaRoots& roots,
                                     const QString& path) {
  const QStringList parts = path.size() <= kLongestPath ? partsOf(path) : QStringList();
  if (parts.isEmpty()) return std::nullopt;
  const bool within = parts.last().compare("VIDEO_TS"_L1, Qt::CaseInsensitive) == 0;
  const QString table =
      joined(parts, 0) + (within ? u"/VIDEO_TS.IFO"_s : u"/VIDEO_TS/VIDEO_TS.IFO"_s);
  const auto found = findBelow(files, roots, kDiscTable, table);
  return found ? std::optional(found->section(u'/', 0, -2)) : std::nullopt;
}

}  // namespace korvane
