// The answer of a drive to READ TOC, any bytes: its text has at most 99 tracks and the lead-out,
// and gives an identifier that starts with its digits.
#include <cstdlib>

#include "ripper/names/c_spti.h"
#include "ripper/names/cls_cddb.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  const QString toc = tocOfAnswer(QByteArrayView(data, static_cast<qsizetype>(size)));
  const QString id = clscddb::figureid(toc);
  if (toc.isEmpty()) {
    if (!id.isEmpty()) std::abort();
    return 0;
  }
  const QStringList numbers = toc.split(u' ');
  if (numbers.size() > 100 || id.size() < 8) std::abort();
  bool falls = false;
  for (const QString& number : numbers) {
    bool isNumber = false;
    const int frames = number.toInt(&isNumber);
    if (!isNumber || frames < 0) std::abort();
    falls |= frames < numbers[0].toInt();
  }
  if (!falls && (id.size() != 8 || id.last(2).toInt(nullptr, 16) != numbers.size() - 1))
    std::abort();
  return 0;
}
