#include "platform/path_text.h"

#include "platform/windows1252.h"

namespace korvane {
namespace {

constexpr char16_t kEscape = 0xEF00;  // to 0xEFFF; in UTF-8 EE BC 80 to EE BF BF

bool isEscape(QChar c) {
  return (c.unicode() & 0xFF00) == kEscape;
}

bool plainAscii(QByteArrayView bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) {
    return static_cast<uchar>(c) >= 0x20 && static_cast<uchar>(c) < 0x7F && c != '\\';
  });
}

// The length of the valid UTF-8 sequence at the start, 0 for none or one that an escape would look
// like.
qsizetype sequence(QByteArrayView bytes) {
  const auto at = [&](qsizetype i) { return static_cast<uchar>(bytes[i]); };
  const uchar lead = at(0);
  if (lead < 0x20 || lead == 0x7F || lead == '\\') return 0;
  if (lead < 0x80) return 1;
  const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (length > bytes.size() || !bytes.first(length).isValidUtf8()) return 0;
  const bool escapeLike = lead == 0xEE && at(1) >= 0xBC;
  const bool mark = lead == 0xEF && at(1) == 0xBB && at(2) == 0xBF;
  return escapeLike || mark ? 0 : length;
}

}  // namespace

QString toPath(QByteArrayView diskBytes) {
  if (plainAscii(diskBytes)) return QString::fromLatin1(diskBytes);
  QString path;
  path.reserve(diskBytes.size());
  while (!diskBytes.isEmpty()) {
    const qsizetype length = sequence(diskBytes);
    if (length == 0)
      path.append(QChar(kEscape | static_cast<uchar>(diskBytes[0])));
    else
      path.append(QString::fromUtf8(diskBytes.first(length)));
    diskBytes = diskBytes.sliced(std::max<qsizetype>(length, 1));
  }
  return path;
}

QByteArray fromPath(QStringView path) {
  QByteArray bytes;
  bytes.reserve(path.size());
  while (!path.isEmpty()) {
    const auto escape = std::find_if(path.begin(), path.end(), isEscape);
    const qsizetype plain = escape - path.begin();
    bytes.append(path.first(plain).toUtf8());
    path = path.sliced(plain);
    for (; !path.isEmpty() && isEscape(path[0]); path = path.sliced(1))
      bytes.append(static_cast<char>(path[0].unicode() & 0xFF));
  }
  return bytes;
}

QString foldedName(QStringView path) {
  QString name = path.toString();
  for (QChar& c : name)
    if (isEscape(c)) c = fromWindows1252(QByteArray(1, static_cast<char>(c.unicode() & 0xFF)))[0];
  const bool ascii =
      std::all_of(name.begin(), name.end(), [](QChar c) { return c.unicode() < 0x80; });
  return (ascii ? name : name.normalized(QString::NormalizationForm_C)).toCaseFolded();
}

}  // namespace korvane
