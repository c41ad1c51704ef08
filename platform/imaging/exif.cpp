#include "platform/imaging/exif.h"

#include <QtEndian>

namespace korvane {
namespace {

enum Tag : quint16 {
  kOrientation = 0x0112,
  kDateTime = 0x0132,
  kExifTable = 0x8769,
  kDateTimeOriginal = 0x9003,
  kDateTimeDigitized = 0x9004,
  kPixelWidth = 0xA002,
  kPixelHeight = 0xA003,
};
enum Type : quint16 { kAscii = 2, kShort = 3, kLong = 4 };
constexpr int kMostEntries = 1000;  // of a table; cameras write under 100
constexpr int kEntry = 12;          // bytes: tag, type, count, value or its place

// Numbers of a byte range in the order of bytes that it says; 0 for what lies outside.
class Tiff {
 public:
  explicit Tiff(QByteArrayView bytes)
      : bytes_(bytes), big_(bytes.startsWith("MM")), valid_(big_ || bytes.startsWith("II")) {
    valid_ = valid_ && u16(2) == 42;
  }

  quint16 u16(qsizetype at) const {
    if (at < 0 || at > bytes_.size() - 2) return 0;
    const char* data = bytes_.data() + at;
    return big_ ? qFromBigEndian<quint16>(data) : qFromLittleEndian<quint16>(data);
  }
  quint32 u32(qsizetype at) const {
    if (at < 0 || at > bytes_.size() - 4) return 0;
    const char* data = bytes_.data() + at;
    return big_ ? qFromBigEndian<quint32>(data) : qFromLittleEndian<quint32>(data);
  }
  // Where the first table begins; 0 when these bytes have none.
  qsizetype firstTable() const { return valid_ ? u32(4) : 0; }
  bool big() const { return big_; }

  int entries(qsizetype table) const {
    if (table < 8) return 0;
    const qsizetype room = (bytes_.size() - table - 2) / kEntry;
    return static_cast<int>(
        std::clamp<qsizetype>(room, 0, std::min<int>(u16(table), kMostEntries)));
  }
  // The entry of `tag`; 0 when the table has none.
  qsizetype entry(qsizetype table, quint16 tag) const {
    const int count = entries(table);
    for (int i = 0; i < count; ++i) {
      const qsizetype at = table + 2 + qsizetype{i} * kEntry;
      if (u16(at) == tag) return at;
    }
    return 0;
  }
  // A whole number that stands in the entry itself; 0 when there is none.
  quint32 number(qsizetype entry) const {
    if (!entry) return 0;
    return u16(entry + 2) == kShort ? u16(entry + 8) : u16(entry + 2) == kLong ? u32(entry + 8) : 0;
  }
  qsizetype exifTable() const { return number(entry(firstTable(), kExifTable)); }

  QDateTime date(qsizetype entry) const {
    constexpr int kLength = 19;  // 2026:11:24 15:30:00
    const qsizetype at = entry ? qsizetype{u32(entry + 8)} : 0;
    if (!entry || u16(entry + 2) != kAscii || u32(entry + 4) < kLength) return {};
    if (at > bytes_.size() - kLength) return {};
    return QDateTime::fromString(QString::fromLatin1(bytes_.sliced(at, kLength)),
                                 u"yyyy:MM:dd HH:mm:ss"_s);
  }

 private:
  QByteArrayView bytes_;
  bool big_, valid_;
};

// Sets the number of an entry, if it stands in the entry itself and has room for it.
void setNumber(char* bytes, const Tiff& tiff, qsizetype entry, quint32 value) {
  if (!entry || tiff.u32(entry + 4) != 1) return;
  char* place = bytes + entry + 8;
  if (tiff.u16(entry + 2) == kShort && value <= 0xffff) {
    const auto small = static_cast<quint16>(value);
    tiff.big() ? qToBigEndian(small, place) : qToLittleEndian(small, place);
  } else if (tiff.u16(entry + 2) == kLong) {
    tiff.big() ? qToBigEndian(value, place) : qToLittleEndian(value, place);
  }
}

}  // namespace

Exif readExif(QByteArrayView bytes) {
  const Tiff tiff(bytes);
  const qsizetype first = tiff.firstTable(), second = tiff.exifTable();
  Exif exif;
  const quint32 orientation = tiff.number(tiff.entry(first, kOrientation));
  if (orientation >= 1 && orientation <= 8) exif.orientation = static_cast<int>(orientation);
  exif.taken = tiff.date(tiff.entry(second, kDateTimeOriginal));
  if (!exif.taken.isValid()) exif.taken = tiff.date(tiff.entry(second, kDateTimeDigitized));
  if (!exif.taken.isValid()) exif.taken = tiff.date(tiff.entry(first, kDateTime));
  return exif;
}

void rewriteExif(char* bytes, qsizetype size, const ExifChange& change) {
  const Tiff tiff(QByteArrayView(bytes, size));
  const qsizetype first = tiff.firstTable(), second = tiff.exifTable();
  if (change.upright) setNumber(bytes, tiff, tiff.entry(first, kOrientation), 1);
  setNumber(bytes, tiff, tiff.entry(second, kPixelWidth), static_cast<quint32>(change.width));
  setNumber(bytes, tiff, tiff.entry(second, kPixelHeight), static_cast<quint32>(change.height));
  // Behind the entries stands the place of the next table, which is the preview's.
  const int count = tiff.entries(first);
  const qsizetype next = first + 2 + qsizetype{count} * kEntry;
  if (count > 0 && count == tiff.u16(first) && next <= size - 4) std::memset(bytes + next, 0, 4);
}

}  // namespace korvane
