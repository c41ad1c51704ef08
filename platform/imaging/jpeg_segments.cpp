#include "platform/imaging/jpeg_segments.h"

#include <QtEndian>

namespace korvane {
namespace {

constexpr uchar kStartOfScan = 0xDA, kEndOfImage = 0xD9, kApp0 = 0xE0, kApp1 = 0xE1, kApp2 = 0xE2,
                kApp14 = 0xEE, kApp15 = 0xEF, kComment = 0xFE;
constexpr int kMostSegments = 10'000;

// 0xC0 to 0xCF begin a frame, but for those that bring tables.
bool beginsFrame(uchar marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

bool standsAlone(uchar marker) {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

void note(JpegHead& head, QByteArrayView bytes, const JpegSegment& segment) {
  const QByteArrayView body = bytes.sliced(segment.at + 4, segment.size - 4);
  if (beginsFrame(segment.marker) && body.size() >= 6) {
    head.height = qFromBigEndian<quint16>(body.data() + 1);
    head.width = qFromBigEndian<quint16>(body.data() + 3);
    head.colours = static_cast<uchar>(body[5]);
  }
  constexpr QByteArrayView kExif("Exif\0\0", 6);
  if (segment.marker == kApp1 && !head.exifSize && body.startsWith(kExif)) {
    head.exifAt = segment.at + 4 + kExif.size();
    head.exifSize = body.size() - kExif.size();
  }
  head.segments.push_back(segment);
}

}  // namespace

JpegHead jpegHead(QByteArrayView bytes) {
  JpegHead head;
  qsizetype at = 2;
  for (int count = 0; count < kMostSegments; ++count) {
    while (at < bytes.size() && static_cast<uchar>(bytes[at]) != 0xFF) ++at;  // litter
    while (at < bytes.size() && static_cast<uchar>(bytes[at]) == 0xFF) ++at;  // fillers
    if (at >= bytes.size()) break;
    const auto marker = static_cast<uchar>(bytes[at++]);
    if (marker == kStartOfScan || marker == kEndOfImage) return head;
    if (marker == 0 || standsAlone(marker)) continue;
    if (at > bytes.size() - 2) break;
    const qsizetype length = qFromBigEndian<quint16>(bytes.data() + at);
    if (length < 2) return head;
    if (length > bytes.size() - at) break;
    note(head, bytes, {marker, at - 2, length + 2});
    at += length;
  }
  head.cut = head.width == 0;
  return head;
}

QByteArray jpegRemarks(QByteArrayView bytes, const JpegHead& head) {
  QByteArray remarks;
  for (const JpegSegment& segment : head.segments) {
    const bool application = segment.marker > kApp0 && segment.marker <= kApp15;
    if (segment.marker != kComment && (!application || segment.marker == kApp14)) continue;
    const QByteArrayView whole = bytes.sliced(segment.at, segment.size);
    if (segment.marker == kApp2 && head.colours == 4 && whole.sliced(4).startsWith("ICC_PROFILE"))
      continue;
    remarks += whole;
  }
  return remarks;
}

}  // namespace korvane
