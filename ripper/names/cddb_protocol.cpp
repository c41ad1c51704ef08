#include "ripper/names/cddb_protocol.h"

#include <QUrl>

#include "ripper/names/xmcd_record.h"

namespace korvane {
namespace {

constexpr int kFrames = 75;         // of a second
constexpr qsizetype kShown = 80;    // characters of a server's words in a message
constexpr qsizetype kLongest = 40;  // of a category; the known ones have up to 10

QByteArrayView takeLine(QByteArrayView& text) {
  const qsizetype end = text.indexOf('\n');
  QByteArrayView line = end < 0 ? text : text.first(end);
  text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
  return line.endsWith('\r') ? line.chopped(1) : line;
}

// The first line of an answer; code -1 for what is none.
struct Status {
  explicit Status(QByteArrayView line) {
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    if (line.size() < 3 || !std::all_of(line.begin(), line.begin() + 3, digit)) return;
    if (line.size() > 3 && line[3] != ' ') return;
    code = line.first(3).toInt();
    words = line.sliced(3).trimmed();
  }
  CddbTrouble trouble() const {
    if (code < 0) return {u"does not speak CDDB."_s};
    const QString shown = QString::fromUtf8(words).simplified().left(kShown);
    return {u"refuses with \"%1\"."_s.arg(u"%1 %2"_s.arg(code).arg(shown).trimmed())};
  }
  int code = -1;
  QByteArrayView words;
};

// The lines before the full stop; nothing where that has not come.
std::optional<QByteArrayView> listed(QByteArrayView text) {
  const char* const begin = text.data();
  while (!text.isEmpty()) {
    const char* const at = text.data();
    if (takeLine(text) == ".") return QByteArrayView(begin, at - begin);
  }
  return {};
}

CddbTrouble cutShort() {
  return {u"broke its answer off."_s};
}

// "category discid title"
CddbFound entryOf(QByteArrayView line) {
  const QList<QByteArray> words = line.toByteArray().simplified().split(' ');
  const auto plain = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '_';
  };
  const auto good = [&plain](const QByteArray& word) {
    return !word.isEmpty() && word.size() <= kLongest &&
           std::all_of(word.begin(), word.end(), plain);
  };
  if (!good(words.value(0)) || !good(words.value(1))) return CddbTrouble{u"does not speak CDDB."_s};
  return CddbEntry{QString::fromLatin1(words[0]), QString::fromLatin1(words[1])};
}

QString command(const QString& place, const QString& words) {
  return place + u"?cmd="_s + words +
         u"&hello=anonymous+localhost+korvane+" KORVANE_VERSION "&proto=6"_s;
}

}  // namespace

QString cddbDiscId(const CddbQuery& query) {
  int sum = 0;
  for (const int start : query.starts)
    for (int seconds = start / kFrames; seconds > 0; seconds /= 10) sum += seconds % 10;
  const int length = query.leadOut / kFrames - query.starts.value(0) / kFrames;
  return u"%1%2%3"_s.arg(sum % 255, 2, 16, QChar(u'0'))
      .arg(length & 0xffff, 4, 16, QChar(u'0'))
      .arg(query.starts.size() & 0xff, 2, 16, QChar(u'0'));
}

CddbFound readCddbQuery(QByteArrayView answer) {
  const Status status(takeLine(answer));
  switch (status.code) {
    case 200:  // the one exact match, in this line
      return entryOf(status.words);
    case 202:
      return CddbUnknown{};
    case 210:    // exact matches
    case 211: {  // inexact ones
      const std::optional<QByteArrayView> lines = listed(answer);
      if (!lines) return cutShort();
      if (lines->isEmpty()) return CddbUnknown{};
      QByteArrayView rest = *lines;
      return entryOf(takeLine(rest));
    }
    default:
      return status.trouble();
  }
}

CddbRead readCddbRecord(QByteArrayView answer) {
  const Status status(takeLine(answer));
  if (status.code == 401) return CddbUnknown{};
  if (status.code != 210) return status.trouble();
  const std::optional<QByteArrayView> lines = listed(answer);
  if (!lines) return cutShort();
  const std::optional<XmcdRecord> record = readXmcd(*lines);
  if (!record) return CddbTrouble{u"answers with a record that cannot be read."_s};
  return CddbNames{record->artist, record->album, record->year, record->genre, record->titles};
}

QString cddbPlace(const QString& server) {
  const QString text = server.trimmed();
  QUrl url(text.contains("://"_L1) ? text : u"http://"_s + text);
  if (!url.isValid() || url.host().isEmpty()) return text;
  if (url.path().isEmpty() || url.path() == "/"_L1) url.setPath(u"/~cddb/cddb.cgi"_s);
  url.setQuery(QString());
  url.setFragment(QString());
  return QString::fromLatin1(url.toEncoded());
}

QString cddbQueryUrl(const QString& place, const CddbQuery& query) {
  QString words = u"cddb+query+%1+%2"_s.arg(cddbDiscId(query)).arg(query.starts.size());
  for (const int start : query.starts) words += u"+%1"_s.arg(start);
  return command(place, words + u"+%1"_s.arg(query.leadOut / kFrames));
}

QString cddbReadUrl(const QString& place, const CddbEntry& entry) {
  return command(place, u"cddb+read+%1+%2"_s.arg(entry.category, entry.discId));
}

}  // namespace korvane
