#include "library/tags/audio_tags.h"

#include <QFile>
#include <stdexcept>

#include "library/data/vb_text.h"

namespace korvane {
namespace {

QString field(QByteArrayView bytes, const CodePage& page) {
  QByteArray text = bytes.toByteArray();
  text.removeIf([](char c) { return c == '\0'; });
  return trimBlanks(page.decode(text));
}

}  // namespace

std::optional<AudioTags> tagsOfID3v1(QByteArrayView tail, const CodePage& page) {
  if (tail.size() != kId3v1Size || !tail.startsWith("TAG")) return {};
  AudioTags tags;
  tags.Title = field(tail.sliced(3, 30), page);
  tags.Artist = field(tail.sliced(33, 30), page);
  tags.Album = field(tail.sliced(63, 30), page);
  tags.Year = field(tail.sliced(93, 4), page);
  tags.Comment = field(tail.sliced(97, 30), page);
  return tags;
}

std::optional<AudioTags> readID3v1(const QString& path, const CodePage& page) {
  if (path.isEmpty()) return {};
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw std::runtime_error((file.errorString() + u": "_s + path).toStdString());
  if (file.size() < kId3v1Size || !file.seek(file.size() - kId3v1Size)) return {};
  return tagsOfID3v1(file.read(kId3v1Size), page);
}

}  // namespace korvane
