#include "ripper/rip_names.h"

#include "library/data/song.h"
#include "platform/file_system.h"

namespace korvane {
namespace {

constexpr int kMostBytes = 200;  // of a name of 255: its number, its ending and a temporary one

// At a boundary of a character: a half of a pair is none.
QString cutToBytes(QString text) {
  while (text.toUtf8().size() > kMostBytes) text.chop(text.back().isLowSurrogate() ? 2 : 1);
  return text;
}

bool refused(QChar each) {
  return each.unicode() < 0x20 || each.unicode() == 0x7f || u"\\/:*?\"<>|"_s.contains(each);
}

QString withoutEdges(const QString& text) {
  qsizetype from = 0, to = text.size();
  const auto edge = [&](qsizetype at) { return text[at].isSpace() || text[at] == u'.'; };
  while (from < to && edge(from)) ++from;
  while (to > from && edge(to - 1)) --to;
  return text.mid(from, to - from);
}

}  // namespace

QString cleanName(QString text) {
  for (const QChar each : u".\\/\":"_s) text.replace(each, u' ');
  return text.remove(u'?');
}

QString safeName(const QString& text, const QString& orElse) {
  QString name = text;
  for (QChar& each : name)
    if (refused(each)) each = u' ';
  name = withoutEdges(cutToBytes(withoutEdges(name.simplified())));
  return name.isEmpty() ? orElse : name;
}

QString trackNumber(int track) {
  return u"%1"_s.arg(track, 2, 10, QChar(u'0'));
}

QString madeTitle(int track) {
  return u"Track "_s + trackNumber(track);
}

QString withoutNul(QString text) {
  return text.remove(QChar(0));
}

QStringList albumFolders(const QString& ripPath, const QString& artist, const QString& album,
                         bool safe) {
  const auto name = [safe](const QString& text, const QString& orElse) {
    return safe ? safeName(text, orElse) : withoutNul(text);
  };
  const QString ofArtist = FileSystem::BuildPath(ripPath, name(artist, u"Unknown artist"_s));
  return {ripPath, ofArtist, FileSystem::BuildPath(ofArtist, name(album, u"Unknown album"_s))};
}

QString outputName(int track, const QString& title, bool safe) {
  const QString name = safe ? safeName(title, madeTitle(track)) : withoutNul(cleanName(title));
  return trackNumber(track) + u" - "_s + name;
}

QString storedName(int track, const QString& title, bool safe) {
  return safe ? outputName(track, title, true) : trackNumber(track) + u" - "_s + withoutNul(title);
}

StoredNames storedNames(const QString& artist, const QString& album, int track,
                        const QString& title) {
  QString doubled = trackNumber(track) + u" - "_s + withoutNul(title);
  doubled.replace(u"'"_s, u"''"_s);
  return {withoutNul(artist).trimmed().left(width::Artist),
          withoutNul(album).trimmed().left(width::album), doubled.left(width::SongTitle)};
}

}  // namespace korvane
