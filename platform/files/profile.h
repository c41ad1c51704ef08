// Profile files: "[section]" lines and "key=value" lines, the format of GetPrivateProfileString.
//
// Section and key names fold case; blanks around names and before values are not part of them, and
// one pair of quotes around a value is dropped. Blanks after a value belong to it. A line is a
// comment when ';' or '#' is its first character. The first section and key of a name win. Writing
// changes only the line of its key: every other byte stays as it was, line ends (LF or CRLF) and a
// byte order mark included.
//
// A name or value is read as UTF-8 when its bytes are valid UTF-8, else as Windows-1252. It is
// written as UTF-8, but as Windows-1252 into a file that holds Windows-1252, where that loses
// nothing. A file that begins with the mark of UTF-16 (little end first) is UTF-16.
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

// The value of a key in a profile's bytes; nothing when absent. Never fails on any bytes.
std::optional<QString> profileValue(QByteArrayView file, QStringView section, QStringView key);

// The file with the key set: its line replaced, or added to the end of its section, or both section
// and line added at the end. Line breaks and zeros in `value` become blanks. What profileValue()
// reads back is otherwise `value`; quotes are put around it where they are needed for that. Names
// that no profile can hold (empty, with '=', ']' or line breaks, or like a comment) leave the file
// unchanged.
QByteArray withProfileValue(QByteArrayView file, QStringView section, QStringView key,
                            QStringView value);

}  // namespace korvane
