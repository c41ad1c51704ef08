// The mode of the benchmark that moves files. Prints one line of JSON and returns 0 when its aims
// were met.
#pragma once

#include "platform/text.h"

namespace korvane {

int benchFtp(const QStringList& arguments);  // from vsftpd on this machine

}  // namespace korvane
