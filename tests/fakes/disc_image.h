// A disc image of tones, made by the test: a CUE sheet and its BIN.
#pragma once

#include <QFile>

#include "platform/disc/disc_reader.h"

namespace korvane {

// `seconds` of a square wave; every sample differs from silence, and `level` tells tracks apart.
inline QByteArray toneSectors(int seconds, qint16 level) {
  QByteArray sound(qsizetype{seconds} * kSectorsPerSecond * kSectorBytes, '\0');
  auto* samples = reinterpret_cast<qint16*>(sound.data());
  for (qsizetype i = 0; i < sound.size() / 2; ++i)
    samples[i] = static_cast<qint16>(i / 100 % 2 ? level : -level);
  return sound;
}

// `<folder>/<name>.cue` with a track for each number of seconds, at the levels 1000, 2000, ...;
// the path of the sheet.
inline QString makeDiscImage(const QString& folder, const QString& name, const QList<int>& seconds,
                             const QByteArray& kind = "AUDIO") {
  QByteArray sheet =
      "TITLE \"Harbour\"\nPERFORMER \"Lumen Quay\"\nFILE \"" + name.toUtf8() + ".bin\" BINARY\n";
  QFile data(folder + u'/' + name + u".bin"_s);
  if (!data.open(QIODevice::WriteOnly)) throw std::runtime_error("no image can be written");
  int at = 0, track = 0;
  for (const int length : seconds) {
    ++track;
    sheet += QStringLiteral("  TRACK %1 %2\n    TITLE \"Tone é %3\"\n    INDEX 01 %4:%5:00\n")
                 .arg(track, 2, 10, QChar(u'0'))
                 .arg(QString::fromLatin1(kind))
                 .arg(track)
                 .arg(at / 60, 2, 10, QChar(u'0'))
                 .arg(at % 60, 2, 10, QChar(u'0'))
                 .toUtf8();
    data.write(toneSectors(length, static_cast<qint16>(1000 * track)));
    at += length;
  }
  QFile file(folder + u'/' + name + u".cue"_s);
  if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no image can be written");
  file.write(sheet);
  return file.fileName();
}

}  // namespace korvane
