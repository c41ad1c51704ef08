// The machine's DVD drive. Its calls may take as long as the drive does: not for the event loop.
#pragma once

#include "platform/text.h"

namespace korvane {

// The first drive there is; empty for none.
QByteArray firstDvdDrive();

// Whether a disc lies in it and can be read. A plain file, the image of a disc, always does.
bool dvdInDrive(const QByteArray& device);

// Why its disc cannot be played, in one sentence for a message; empty when it may.
QString dvdDriveFault(const QByteArray& device);

}  // namespace korvane
