#include "listener/song_finder.h"

namespace korvane {
namespace {

constexpr int kDeepestMountPoint = 4;  // "/run/media/<user>/<volume>"

// The path below its volume, the longest guess first.
QStringList pathsBelowVolume(const QString& path) {
  QString rest = FileSystem::slashed(path);
  if (rest.size() > 1 && rest[1] == u':') return {rest.mid(2)};
  QStringList guesses;
  for (int folder = 0; folder <= kDeepestMountPoint; ++folder) {
    if (!rest.startsWith(u'/')) break;
    guesses << rest;
    rest = rest.mid(rest.indexOf(u'/', 1));
    if (rest == guesses.back()) break;
  }
  return guesses;
}

}  // namespace

std::optional<QString> findSong(const FileSystem& files, const QString& path) {
  if (path.isEmpty()) return std::nullopt;
  if (files.FileExists(path)) return path;
  const QStringList guesses = pathsBelowVolume(path);
  for (const QString& volume : files.volumes()) {
    const QString root = volume.endsWith(u'/') ? volume.chopped(1) : volume;
    for (const QString& below : guesses)
      if (files.FileExists(root + below)) return root + below;
  }
  return std::nullopt;
}

}  // namespace korvane
