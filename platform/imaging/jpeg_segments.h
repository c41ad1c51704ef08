// The segments that stand before the pixels of a JPEG file (ITU T.81, annex B): each begins with
// 0xFF and the number of its marker, then two bytes of length.
#pragma once

#include "platform/text.h"

namespace korvane {

struct JpegSegment {
  uchar marker = 0;
  qsizetype at = 0, size = 0;  // in the file, with the marker and the length
};

struct JpegHead {
  std::vector<JpegSegment> segments;   // whole ones, in their order
  int width = 0, height = 0;           // pixels, as stored; 0 while no frame has been seen
  int colours = 0;                     // 1 grey, 3 colour, 4 for a press
  qsizetype exifAt = 0, exifSize = 0;  // of the first EXIF's TIFF head; at most 64 KiB by nature
  bool cut = false;                    // the bytes ended before the frame
};
// Of a file or as much of it as is given. Any bytes may be given; it ends at the first scan.
JpegHead jpegHead(QByteArrayView bytes);

// What a JPEG file says beside its pixels: the segments to take over into another one, in one
// piece. Without those that say how the pixels are stored, and without the colour profile of a
// picture for a press, which holds no longer once it is made of red, green and blue.
QByteArray jpegRemarks(QByteArrayView bytes, const JpegHead& head);

}  // namespace korvane
