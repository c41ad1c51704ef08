// ANI files: a RIFF file of form "ACON" that holds the frames of an animated cursor, each a whole
// icon file in a chunk "icon".
#pragma once

#include "platform/text.h"

namespace korvane {

// The first frame, as an icon file. Empty when there is none. Any bytes may be given.
QByteArrayView firstCursorFrame(QByteArrayView bytes);

}  // namespace korvane
