// Parts of picture files, made byte by byte.
#pragma once

#include <QtEndian>

#include "platform/text.h"

namespace korvane {

// The TIFF file within EXIF: a first table with the orientation, a table of EXIF with a date, and
// a preview's table behind the first.
struct MadeExif {
  int orientation = 1;
  bool big = false;           // its numbers begin with the high byte
  QByteArray date{};          // "2026:11:24 15:30:00"; empty for none
  quint32 exifTable = 38;     // where the first table says that of EXIF stands
  quint32 previewTable = 88;  // and where that of the preview
  quint16 entries = 2;        // how many the first table says it has

  QByteArray bytes() const {
    QByteArray out(big ? "MM" : "II");
    const auto u16 = [&](quint16 value) {
      const quint16 stored = big ? qToBigEndian(value) : qToLittleEndian(value);
      out.append(reinterpret_cast<const char*>(&stored), 2);
    };
    const auto u32 = [&](quint32 value) {
      const quint32 stored = big ? qToBigEndian(value) : qToLittleEndian(value);
      out.append(reinterpret_cast<const char*>(&stored), 4);
    };
    u16(42), u32(8);
    u16(entries);
    u16(0x0112), u16(3), u32(1), u16(static_cast<quint16>(orientation)), u16(0);
    u16(0x8769), u16(4), u32(1), u32(exifTable);
    u32(previewTable);
    u16(1);  // at 38
    u16(0x9003), u16(2), u32(20), u32(56);
    u32(0);  // at 52
    out += date.leftJustified(20, '\0', true);
    out.resize(88, '\0');
    u16(0), u32(0);
    return out;
  }
};

// A JPEG file with one more segment behind its first marker.
inline QByteArray withSegment(QByteArray jpeg, uchar marker, const QByteArray& body) {
  QByteArray segment("\xFF");
  segment += static_cast<char>(marker);
  const auto length = qToBigEndian(static_cast<quint16>(body.size() + 2));
  segment.append(reinterpret_cast<const char*>(&length), 2);
  return jpeg.insert(2, segment + body);
}

inline QByteArray withExif(const QByteArray& jpeg, const MadeExif& exif) {
  return withSegment(jpeg, 0xE1, QByteArray("Exif\0\0", 6) + exif.bytes());
}

}  // namespace korvane
