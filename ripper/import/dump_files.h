// The files of a dump of disc names: a tar, plain or packed by gzip, bzip2, xz or zstd, a folder
// with all below it, or one record by itself.
#pragma once

#include <functional>

#include "platform/file_system.h"

namespace korvane {

// Hands each file to `take`, whose bytes go with the call, until that says false; one that is
// longer than a record can be comes empty. Empty, or why it was not read to its end, in words.
QString readDumpFiles(const FileSystem& files, const QString& path,
                      const std::function<bool(QByteArrayView)>& take);

}  // namespace korvane
