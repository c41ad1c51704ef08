#include "platform/disc/cue_sheet.h"

namespace korvane {
namespace {

constexpr qsizetype kLongestLine = 1000;
constexpr int kMost = 99;  // tracks, and places of a track

QString at(int line, const QString& what) {
  return u"line %1 %2"_s.arg(line).arg(what);
}

// The words of a line, without its blanks.
QList<QByteArray> words(const QByteArray& line) {
  return line.simplified().split(' ');
}

}  // namespace

QString cueTrouble(const QByteArray& sheet) {
  if (sheet.contains('\0')) return u"it is no text"_s;
  int number = 0, tracks = 0, places = 0;
  for (const QByteArray& line : sheet.split('\n')) {
    ++number;
    if (line.size() > kLongestLine) return at(number, u"is too long"_s);
    const QList<QByteArray> entry = words(line);
    if (entry[0] == "TRACK") {
      if (++tracks > kMost) return at(number, u"is a track too many"_s);
      bool isNumber = false;
      if (entry.value(1).toInt(&isNumber) != tracks || !isNumber)
        return at(number, u"is not track %1, which comes next"_s.arg(tracks));
      places = 0;
    }
    if (entry[0] == "INDEX" && (tracks == 0 || ++places > kMost))
      return at(number, u"is a place without a track of its own"_s);
  }
  return tracks == 0 ? u"it has no tracks"_s : QString();
}

}  // namespace korvane
