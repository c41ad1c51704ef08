// A look at a directory of pictures, for a thread of its own: names in the order of the disk, or as
// key PhotoSort has them.
#pragma once

#include "core/settings.h"
#include "platform/imaging.h"

namespace korvane {

enum class PhotoOrder { Disk, Name, Date };
PhotoOrder photoOrderOf(const Settings& settings);

// The names of the directory's files, put into that order. By date: when it was taken, else the
// time of its file; after three seconds of looking into files the time of the file stands for the
// rest. Any thread; waits for the disk.
QStringList inPhotoOrder(QStringList names, const QString& directory, PhotoOrder order,
                         const FileSystem& files, const Imaging& imaging);

}  // namespace korvane
