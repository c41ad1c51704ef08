// The mounted volumes out of /proc/self/mountinfo, in the format of proc(5). Any bytes are taken; a
// line that is none is passed over.
#pragma once

#include "platform/text.h"

namespace korvane {

// Mount points, in the order of the table, of what files are kept on: block devices and network
// file systems. Not those of the system itself (/boot, packaged programs), and each volume once.
QStringList volumesOf(QByteArrayView mountInfo);

// Where the device of that canonical path is mounted.
QStringList mountsOf(QByteArrayView mountInfo, const QString& device);

}  // namespace korvane
