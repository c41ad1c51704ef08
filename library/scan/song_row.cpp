#include "library/scan/song_row.h"

#include "library/data/vb_text.h"
#include "platform/windows1252.h"

namespace korvane {
namespace {

QString written(const QString& text, int width) {
  return cut(QString(text).replace(u'"', u'\''), width);
}

// Of title, artist and album, by which songs are found again: no blank at an end, also where the
// field's width has cut.
QString trimmed(const QString& text, int width) {
  return trimBlanks(written(trimBlanks(text), width));
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
  song.SongTitle = trimmed(title, wide);
  song.Artist = trimmed(orUnknown(trimBlanks(found.Artist)), wide);
  song.album = trimmed(orUnknown(trimBlanks(found.Album)), wide);
  song.Comment = written(found.Comment, width::Comment);
  song.year = written(found.Year, width::year);
  song.SongPath = path;
  return song;
}

Song songByFolders(const QString& artist, const QString& album, const QString& fileName,
                   const QString& path, const ScanRules& rules) {
  Song song;
  song.Artist = trimmed(artist, width::Artist);
  song.album = trimmed(album, width::album);
  song.SongTitle = trimmed(rules.withoutKind(fileName), width::SongTitle);
  song.SongPath = path;
  return song;
}

QString nameShown(QByteArrayView diskBytes) {
  return diskBytes.isValidUtf8() ? QString::fromUtf8(diskBytes) : fromWindows1252(diskBytes);
}

}  // namespace korvane
