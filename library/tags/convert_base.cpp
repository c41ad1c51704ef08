#include "library/tags/convert_base.h"

#include <limits>

#include "library/data/vb_text.h"

namespace korvane {

namespace {

int digitOf(QChar c) {
  if (c >= u'0' && c <= u'9') return c.unicode() - u'0';
  return c >= u'A' && c <= u'Z' ? c.unicode() - 55 : std::numeric_limits<int>::max();
}

}  // namespace

QString convertBase(const QString& number, int fromBase, int toBase) {
  const QString digits = trimBlanks(number);
  const QString error = u"Error"_s;
  if (digits.isEmpty() || fromBase < 2 || fromBase > 36 || toBase < 2 || toBase > 36) return error;
  qulonglong value = 0;
  for (const QChar c : digits) {
    const int digit = digitOf(c);
    if (digit >= fromBase) return error;
    const auto base = static_cast<qulonglong>(fromBase), add = static_cast<qulonglong>(digit);
    if (value > (std::numeric_limits<qulonglong>::max() - add) / base) return error;
    value = value * base + add;
  }
  const QString written = QString::number(value, toBase).toUpper();
  return toBase == 2 ? written.rightJustified(8, u'0') : written;
}

}  // namespace korvane
