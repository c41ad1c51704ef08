// Which file of this machine the path means that a console sends. Consoles see music and movies
// under names of their own ("Z:\Music\a.mp3", "/media/nas/Music/a.mp3"); here they stand below
// roots.
#pragma once

#include <span>

#include "platform/file_system.h"

namespace korvane {

// Where this machine's songs, or its movies, stand.
struct MediaRoots {
  QStringList roots;  // absolute folders
  // Paths of a console that begin so mean files below that folder, which is also a root.
  struct Map {
    QString from, to;
  };
  QList<Map> maps;
};

// A playlist or a text that a player would follow to other files is neither.
inline constexpr QLatin1StringView kSongEndings[] = {
    ".mp3"_L1, ".wma"_L1, ".wav"_L1, ".flac"_L1, ".ogg"_L1,  ".oga"_L1, ".opus"_L1,
    ".m4a"_L1, ".aac"_L1, ".mp2"_L1, ".aif"_L1,  ".aiff"_L1, ".ape"_L1, ".wv"_L1,
};
inline constexpr QLatin1StringView kMovieEndings[] = {
    ".avi"_L1, ".mov"_L1, ".mpeg"_L1, ".mpg"_L1, ".mp4"_L1, ".m4v"_L1,
    ".mkv"_L1, ".wmv"_L1, ".webm"_L1, ".ts"_L1,  ".vob"_L1,
};

// The file that `path` means, as a canonical path: by a map, as it stands when it lies below a
// root, then below each root with ever fewer of its leading folders; the first that is a file below
// its root once all links are followed. Names fold case as on a console. Nothing for a path with
// "..", one of another ending, or one too long.
std::optional<QString> findBelow(const FileSystem& files, const MediaRoots& roots,
                                 std::span<const QLatin1StringView> endings, const QString& path);

// The folder VIDEO_TS that `path` means, or that stands in the folder it means, looked for in the
// same way. One without VIDEO_TS.IFO, the disc's table, is no disc.
std::optional<QString> findDiscBelow(const FileSystem& files, const MediaRoots& roots,
                                     const QString& path);

}  // namespace korvane
