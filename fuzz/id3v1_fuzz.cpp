// The ID3v1 reader on any bytes, in several code pages, and the row that its fields become.
#include <cstdlib>

#include "library/scan/song_row.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  static const CodePage pages[] = {CodePage(), CodePage(u"UTF-8"_s), CodePage(u"shift_jis"_s)};
  const QByteArrayView file(data, static_cast<qsizetype>(size));
  const QByteArrayView tail = file.last(std::min<qsizetype>(kId3v1Size, file.size()));
  for (const CodePage& page : pages) {
    const auto tags = tagsOfID3v1(tail, page);
    if (tags.has_value() != (size >= 128 && tail.startsWith("TAG"))) std::abort();
    const Song song = songByTags(tags, u"a.mp3"_s, u"/a.mp3"_s, {});
    if (song.SongTitle.isEmpty() || song.Artist.isEmpty() || song.album.isEmpty()) std::abort();
    if (song.SongTitle.size() > 30 || song.Artist.size() > 30 || song.year.size() > 4) std::abort();
    if (song.SongTitle.contains(u'"') || song.Comment.contains(QChar(u'\0'))) std::abort();
  }
  return 0;
}
