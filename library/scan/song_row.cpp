#include "library/scan/song_row.h"

#include "library/data/vb_text.h"
#include "platform/windows1252.h"

namespace korvane {
namespace {

QString written(const QString& text, int width) {
  return cut(QString(text).replace(u'"', u'\''), width);
}

QString orUnknown(const QString& text) {
  return text.isEmpty() ? u"unknown"_s : text;
}

// A track number goes in front as the statements know it: two characters, a blank and a dash.
QString withTrack(const QString& title, int track) {
  if (track < 1 || track > 99 || title.isEmpty()) return title;
  return u"%1 -%2"_s.arg(track, 2, 10, QChar(u'0')).arg(title);
}

}  // namespace

Song songByTags(const std::optional<AudioTags>& tags, const QString& fileName, const QString& path,
                const ScanRules& rules) {
  const AudioTags found = tags.value_or(AudioTags{});
  const int wide = rules.fullTags ? width::SongTitle : width::Tag;
  QString title = withTrack(trimBlanks(found.Title), found.track);
  if (title.isEmpty())
    title = rules.fullTags ? rules.withoutKind(fileName) : QString(fileName).remove(u".mp3"_s);
  Song song;
  song.SongTitle = written(title, wide);
  song.Artist = written(orUnknown(trimBlanks(found.Artist)), wide);
  song.album = written(orUnknown(trimBlanks(found.Album)), wide);
  song.Comment = written(found.Comment, width::Comment);
  song.year = written(found.Year, width::year);
  song.SongPath = path;
  return song;
}

Song songByFolders(const QString& artist, const QString& album, const QString& fileName,
                   const QString& path, const ScanRules& rules) {
  Song song;
  song.Artist = written(trimBlanks(artist), width::Artist);
  song.album = written(trimBlanks(album), width::album);
  song.SongTitle = written(rules.withoutKind(fileName), width::SongTitle);
  song.SongPath = path;
  return song;
}

QString nameShown(QByteArrayView diskBytes) {
  return diskBytes.isValidUtf8() ? QString::fromUtf8(diskBytes) : fromWindows1252(diskBytes);
}

}  // namespace korvane
