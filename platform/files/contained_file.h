// Files below one folder and nowhere else, however a path to them is written.
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

// The canonical path of the regular file that `path` leads to, when it stands below `root` once all
// links of both are followed. Nothing for a file elsewhere, a folder, a device, a pipe, or a file
// that may not be read. Nothing is opened that is not such a file.
std::optional<QString> containedFile(const QString& root, const QString& path);

}  // namespace korvane
