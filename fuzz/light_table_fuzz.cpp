// The reader of the table of lamps on any bytes: what it takes is within its limits, what it does
// not take it says with the line; and a lamp of it reads any payload. A byte of 0 ends the table,
// what follows is a payload.
#include <cstdlib>

#include "services/lights/light_table.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const qsizetype end = bytes.indexOf('\0');
  QString error;
  const auto table = readLightTable(end < 0 ? bytes : bytes.first(end), &error);
  if (!table) {
    if (error.isEmpty()) std::abort();
    return 0;
  }
  if (table->isEmpty() || table->size() > kMostLamps) std::abort();
  for (const TableLamp& lamp : *table) {
    if (lamp.unit < 1 || lamp.unit > kMostUnit || lamp.topic.isEmpty()) std::abort();
    if (lamp.topic.contains(u'#') || lamp.topic.contains(u'+')) std::abort();
    for (const int percent : {0, 1, 50, 100})
      if (payloadOf(lamp, percent).size() > 100'000) std::abort();
    const auto level = levelTold(lamp, end < 0 ? QByteArray() : bytes.sliced(end + 1));
    if (level && (*level < 0 || *level > 100)) std::abort();
  }
  return 0;
}
