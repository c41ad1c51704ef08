// A record of a freedb or gnudb text dump, the file of one disc, as a row of a database of names.
#pragma once

#include "ripper/names/xmcd_record.h"

namespace korvane {

struct DumpRecord {
  // What the disc is looked up by: the identifier of its addresses where the record has them, and
  // the others of a record that names several discs; else the identifiers that it names. At least
  // one.
  QStringList discIds;
  QString artist, album;  // one of them may be empty
  QStringList titles;     // of track 1 on, 99 at most
};

// Nothing when that is no record, or one without an identifier.
std::optional<DumpRecord> readDumpRecord(QByteArrayView bytes);

}  // namespace korvane
