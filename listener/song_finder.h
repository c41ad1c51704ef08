// Finds a song whose volume has moved: a library keeps full paths, and a disk that is plugged in
// anew may stand under another letter or mount point.
#pragma once

#include <optional>

#include "platform/file_system.h"

namespace korvane {

// The path as it stands when there is such a file; else the first file of the same path below
// another mounted volume, the path taken without its drive letter or without up to four leading
// folders.
std::optional<QString> findSong(const FileSystem& files, const QString& path);

}  // namespace korvane
