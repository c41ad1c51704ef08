// EXIF (Exif 2.32, CIPA DC-008): what a camera writes beside the pixels. It is a small TIFF file
// (TIFF 6.0): a head of 8 bytes, then tables of 12-byte entries that point at each other. Any bytes
// may be given; nothing outside them is read, and no table is followed twice.
#pragma once

#include <QDateTime>

#include "platform/text.h"

namespace korvane {

struct Exif {
  int orientation = 1;  // 1 to 8
  QDateTime taken;      // local time where it was taken; invalid when it does not say
};
Exif readExif(QByteArrayView tiff);  // from its "II" or "MM" on

// Says in place that the picture stands upright, as far as there is a place for it, and how large
// it is; a preview that is within is let go, since it would show the picture as it was.
struct ExifChange {
  bool upright = false;  // sets the orientation
  int width = 0, height = 0;
};
void rewriteExif(char* tiff, qsizetype size, const ExifChange& change);

}  // namespace korvane
