// The lines of a playlist that any program may have written: plain paths one a line, with or
// without a byte order mark, ended by LF, CRLF or CR, in UTF-8, UTF-16 or Windows-1252. Lines that
// begin with '#' (headers such as #EXTINF of extended M3U, comments) and empty ones are skipped.
//
// Pure: any bytes are read without a failure, in one pass, holding nothing but the file itself.
#pragma once

#include "platform/text.h"

namespace korvane {

class M3uReader {
 public:
  static constexpr qsizetype kLongest =
      32768;  // bytes; what is longer names no file and is skipped

  explicit M3uReader(QByteArray file);

  bool next();  // to the next line that names something; false at the end

  // The line as text: UTF-8 where it is valid, else Windows-1252.
  const QString& text() const { return text_; }

  // What the line may mean as a path, the likeliest first, for a list that lies in `folder`: as it
  // stands, with '/' for '\', relative to the list, a file:// address, with %-escapes, with the
  // bytes of a name that is no text. Without repetitions; the first is always text().
  QStringList meanings(const QString& folder) const;

  // Whether meanings() can hold more than the text itself; cheap.
  bool ambiguous() const;

 private:
  QByteArray file_;
  QByteArrayView rest_;
  QByteArrayView line_;
  QString text_;
};

// The bytes that stand for `path` in a list: a line that M3uReader reads back as that path and that
// other programs can open. Without the line's end.
QByteArray playlistLine(const QString& path);

}  // namespace korvane
