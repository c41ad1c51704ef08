// Windows-1252, one byte a character: the bytes of Listener records, old playlists and old tags.
// Source of the table: the Unicode Consortium's mapping CP1252.TXT. Its five undefined bytes (81,
// 8D, 8F, 90, 9D) stand for the control characters of the same number: every byte comes back.
#pragma once

#include "platform/text.h"

namespace korvane {

QString fromWindows1252(QByteArrayView bytes);
QByteArray toWindows1252(QStringView text);  // '?' for a character it does not have
bool isWindows1252(QStringView text);        // whether toWindows1252() loses nothing

}  // namespace korvane
