// Which file of this machine the path means that a console sends. Consoles see the music under
// names of their own ("Z:\Music\a.mp3", "/media/nas/Music/a.mp3"); here it stands below roots.
#pragma once

#include "platform/file_system.h"

namespace korvane {

// Where this machine's songs stand.
struct SongRoots {
  QStringList roots;  // absolute folders
  // Paths of a console that begin so mean files below that folder, which is also a root.
  struct Map {
    QString from, to;
  };
  QList<Map> maps;
};

// A file that may be meant: below that root, without "." and "..".
struct SongPlace {
  QString root, below;
  bool operator==(const SongPlace&) const = default;
};

// The places that `path` may mean, the likeliest first: by a map, as it stands when it lies below a
// root, then below each root with ever fewer of its leading folders. None for a path with "..", one
// that is no song by its ending, or one too long.
QList<SongPlace> songPlaces(const SongRoots& roots, const QString& path);

// The first of these that is a file below its root once all links are followed, as a canonical
// path; names fold case as on a console.
std::optional<QString> findSongBelow(const FileSystem& files, const SongRoots& roots,
                                     const QString& path);

}  // namespace korvane
