// What ripped songs are called: their folders, their files and their rows in the library.
#pragma once

#include "platform/text.h"

namespace korvane {

// Each of . \ / " : becomes a blank, and ? goes.
QString cleanName(QString text);

// One component of a path that every file system takes: no separators and signs that one refuses,
// no dot or blank at an end, at most 200 bytes of UTF-8. `orElse` where nothing is left.
QString safeName(const QString& text, const QString& orElse);

QString trackNumber(int track);    // two digits at least
QString madeTitle(int track);      // "Track 01", of a track without a name
QString withoutNul(QString text);  // what no file system can hold goes

// The folders of an album below `ripPath`, each within the one before it. Unless `safe`, a '\' or
// '/' in a name makes further folders.
QStringList albumFolders(const QString& ripPath, const QString& artist, const QString& album,
                         bool safe);

// Without folder and ending: that of the file, and that of the file that the library names.
QString outputName(int track, const QString& title, bool safe);
QString storedName(int track, const QString& title, bool safe);

// What a row of the library says of a song: blanks cut, an apostrophe in the title doubled, each
// as long as its column at most.
struct StoredNames {
  QString artist, album, title;
};
StoredNames storedNames(const QString& artist, const QString& album, int track,
                        const QString& title);

}  // namespace korvane
