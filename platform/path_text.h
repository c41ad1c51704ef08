// File names as text. A name on disk is any bytes but '/' and 0; nearly all are UTF-8 and read as
// such. Every byte of a name that is no valid UTF-8, and every control character and '\', becomes
// one character U+EF00 + byte (private use), so that such a name survives in the database, in
// playlists and in records, and comes back byte for byte: fromPath(toPath(name)) == name.
//
// Whoever hands a path to a library that opens files itself gives it fromPath(path).
#pragma once

#include "platform/text.h"

namespace korvane {

QString toPath(QByteArrayView diskBytes);  // any bytes
QByteArray fromPath(QStringView path);     // UTF-8 but for the escaped bytes

// The form in which names are compared: case folded, composed, an escaped byte as its Windows-1252
// character, so that "CAFÉ" finds "café" in whichever of the two encodings it is stored.
QString foldedName(QStringView path);

}  // namespace korvane
