// A disc's record in the text format of xmcd, which CDDB servers answer and dumps of their
// databases hold (the "CDDB database format" of libcddb's and freedb's documents). Lines of
// KEY=value, where a key that comes again goes on with its value, and comments, which give the
// places of the tracks:
//
//   # Track frame offsets:
//   #   150
//   #   15239
//   # Disc length: 2663 seconds
//   DISCID=1e0a6502
//   DTITLE=Artist / Album
//   DYEAR=1994
//   DGENRE=Rock
//   TTITLE0=The first track
#pragma once

#include <optional>

#include "platform/text.h"

namespace korvane {

struct XmcdRecord {
  // Eight hexadecimal digits in lower case; what is none is left out, and what comes after the
  // 99th.
  QStringList discIds;
  // Of the tracks in rising order, in frames of 1/75 s with the lead-in. Empty where those of the
  // record are over 99, do not rise, or lie beyond the end of any disc.
  QList<int> offsets;
  int seconds = 0;  // of the whole disc with the lead-in; 0 where it is not given
  QString artist;   // of a title without " / ": the same as the album
  QString album;
  QString year, genre;  // empty where they are not given; a year has four digits
  QStringList titles;   // of track 1 on, up to the last that the record names; 99 at most
};

// Nothing when the bytes are no such record: they have no disc title. A value that is no UTF-8 is
// read as Windows-1252, which holds Latin-1. Texts have no control characters and no blanks at
// their ends. Pure; from any thread; takes time and room by the number of bytes alone.
std::optional<XmcdRecord> readXmcd(QByteArrayView bytes);

}  // namespace korvane
