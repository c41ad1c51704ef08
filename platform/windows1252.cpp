#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr std::array<char16_t, 32> kHigh{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t characterOf(uchar byte) {
  return byte >= 0x80 && byte < 0xA0 ? kHigh[byte - 0x80] : byte;
}

// The byte of a character, -1 when there is none.
int byteOf(char16_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return c;
  const auto found = std::find(kHigh.begin(), kHigh.end(), c);
  return found == kHigh.end() ? -1 : 0x80 + static_cast<int>(found - kHigh.begin());
}

}  // namespace

QString fromWindows1252(QByteArrayView bytes) {
  QString text(bytes.size(), Qt::Uninitialized);
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char byte) { return QChar(characterOf(static_cast<uchar>(byte))); });
  return text;
}

QByteArray toWindows1252(QStringView text) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const int byte = byteOf(text[i].unicode());
    bytes.append(byte < 0 ? '?' : static_cast<char>(byte));
    const bool pair =
        text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
    if (pair) ++i;
  }
  return bytes;
}

bool isWindows1252(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar c) { return byteOf(c.unicode()) >= 0; });
}

}  // namespace korvane
