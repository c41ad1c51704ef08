// The reader of a dump's record on any bytes: what it takes has identifiers to be looked up by, and
// texts without control characters.
#include <cstdlib>

#include "ripper/import/dump_record.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  const auto record = readDumpRecord(QByteArrayView(data, static_cast<qsizetype>(size)));
  if (!record) return 0;
  if (record->discIds.isEmpty() || record->titles.size() > 99) std::abort();
  for (const QString& id : record->discIds)
    if (id.size() != 8 || id != id.toLower()) std::abort();
  for (const QString& text : QStringList{record->artist, record->album} + record->titles)
    for (const QChar c : text)
      if (c.category() == QChar::Other_Control) std::abort();
  return 0;
}
