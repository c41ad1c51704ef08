// Profile files: "[section]" lines and "key=value" lines, the format of GetPrivateProfileString.
//
// Section and key names fold case; blanks around names and values are not part of them, and one
// pair of quotes around a value is dropped. A line that starts with ';' or '#' is a comment. The
// first section and key of a name win. Writing changes only the line of its key: every other byte
// stays as it was, line ends (LF or CRLF) and a byte order mark included. Bytes are UTF-8 when the
// file is valid UTF-8, else Windows-1252.
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

// The value of a key in a profile's bytes; nothing when absent. Never fails on any bytes.
std::optional<QString> profileValue(QByteArrayView file, QStringView section, QStringView key);

// The file with the key set: its line replaced, or added to the end of its section, or both section
// and line added at the end. Line breaks in `value` become blanks.
QByteArray withProfileValue(QByteArrayView file, QStringView section, QStringView key,
                            QStringView value);

}  // namespace korvane
