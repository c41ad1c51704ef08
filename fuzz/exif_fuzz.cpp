// The reader of EXIF and of the segments around it on any bytes: it ends, gives an orientation that
// there is, and a change stays within the bytes and is read back. The input is a JPEG file or the
// TIFF file of EXIF itself.
#include <cstdlib>

#include "platform/imaging/exif.h"
#include "platform/imaging/jpeg_segments.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const JpegHead head = jpegHead(bytes);
  for (const JpegSegment& segment : head.segments)
    if (segment.size < 4 || segment.at > bytes.size() - segment.size) std::abort();
  if (jpegRemarks(bytes, head).size() > bytes.size()) std::abort();
  if (head.exifSize == 0 && !bytes.startsWith("II") && !bytes.startsWith("MM")) return 0;
  const qsizetype length = head.exifSize ? head.exifSize : bytes.size();
  // In a place of its own, so that a byte beyond its end is noticed.
  QByteArray tiff = bytes.sliced(head.exifSize ? head.exifAt : 0, length);
  const Exif before = readExif(tiff);
  if (before.orientation < 1 || before.orientation > 8) std::abort();
  rewriteExif(tiff.data(), tiff.size(), {true, 640, 480});
  if (tiff.size() != length) std::abort();
  readExif(tiff);
  return 0;
}
