#include "library/tags/cover_art.h"

#include <QFile>
#include <QtEndian>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr qint64 kHeader = 10, kMostPicture = 64 << 20;
constexpr int kMostFrames = 10000;
constexpr qsizetype kPictureIndex = 10;

// The next header; what the file does not have any more reads as zeros.
QByteArray header(QIODevice& file) {
  QByteArray bytes = file.read(kHeader);
  return bytes.append(kHeader - bytes.size(), '\0');
}

std::optional<QByteArray> picture(QByteArray frame) {
  qsizetype start = kPictureIndex;
  while (start < frame.size() && frame[start] == '\0') ++start;
  if (start >= frame.size()) return {};
  return frame.sliced(start);
}

bool isWebp(QByteArrayView bytes) {
  return bytes.size() >= 12 && bytes.startsWith("RIFF") && bytes.sliced(8).startsWith("WEBP");
}

bool beginsImage(QByteArrayView bytes) {
  return bytes.startsWith("\xFF\xD8\xFF") || bytes.startsWith("\x89PNG\r\n\x1A\n") ||
         bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a") || isWebp(bytes);
}

// "BM", the file's length and two zero words: two letters alone would match a description.
bool beginsBitmap(QByteArrayView bytes) {
  if (bytes.size() < 14 || !bytes.startsWith("BM")) return false;
  return qFromLittleEndian<quint32>(bytes.data() + 6) == 0 &&
         qFromLittleEndian<quint32>(bytes.data() + 2) <= static_cast<quint64>(bytes.size());
}

}  // namespace

std::optional<QByteArray> attachedPicture(QIODevice& file) {
  if (!header(file).startsWith("ID3")) return {};
  for (int frame = 0; frame < kMostFrames; ++frame) {
    const QByteArray head = header(file);
    if (head.startsWith(QByteArrayView("\0\0\0\0", 4))) return {};
    const qint64 left = file.size() - file.pos();
    const qint64 size = std::min<qint64>(qFromBigEndian<quint32>(head.constData() + 4), left);
    if (head.startsWith("APIC")) {
      if (size > kMostPicture) return {};
      return picture(file.read(size));
    }
    if (!file.seek(file.pos() + size)) return {};
  }
  return {};
}

QByteArray imageWithin(const QByteArray& bytes) {
  const QByteArrayView view(bytes);
  for (qsizetype at = 0; at < view.size(); ++at)
    if (beginsImage(view.sliced(at)) || beginsBitmap(view.sliced(at))) return bytes.sliced(at);
  return bytes;
}

std::optional<QByteArray> coverArtBytes(const QString& path) {
  FILE* stream = std::fopen(fromPath(path).constData(), "rbe");
  if (!stream) return {};
  QFile file;
  std::optional<QByteArray> found;
  if (file.open(stream, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle) && !file.isSequential())
    found = attachedPicture(file);
  if (found) found = imageWithin(*found);
  return found;
}

}  // namespace korvane
