#include "core/conversions.h"

#include <cmath>
#include <limits>

namespace korvane {
namespace {

int digitOf(QChar c, int base) {
  const int digit = c >= u'0' && c <= u'9'                       ? c.unicode() - u'0'
                    : c.toLower() >= u'a' && c.toLower() <= u'f' ? c.toLower().unicode() - u'a' + 10
                                                                 : base;
  return digit < base ? digit : -1;
}

struct Found {
  double number = 0;
  qsizetype length = 0;  // of the text that it took; 0 for none
};

// What follows "&H" or "&O".
Found radixAt(QStringView text) {
  if (text.size() < 2 || text[0] != u'&') return {};
  const QChar letter = text[1].toUpper();
  const int base = letter == u'H' ? 16 : letter == u'O' ? 8 : 0;
  if (base == 0) return {};
  constexpr quint64 kMost = std::numeric_limits<quint32>::max();
  quint64 number = 0;
  qsizetype at = 2;
  for (; at < text.size() && digitOf(text[at], base) >= 0; ++at) {
    number = number * static_cast<quint64>(base) + static_cast<quint64>(digitOf(text[at], base));
    if (number > kMost) return {};
  }
  if (at == 2) return {};
  const bool wide = at < text.size() && text[at] == u'&';
  if (wide) return {double(static_cast<qint32>(number)), at + 1};
  if (number <= std::numeric_limits<quint16>::max())
    return {double(static_cast<qint16>(number)), at};
  return {double(static_cast<qint32>(number)), at};
}

qsizetype digitsAt(QStringView text, qsizetype from) {
  qsizetype at = from;
  while (at < text.size() && digitOf(text[at], 10) >= 0) ++at;
  return at - from;
}

bool signAt(QStringView text, qsizetype at) {
  return at < text.size() && (text[at] == u'-' || text[at] == u'+');
}

// Sign, digits with a point among them, exponent.
Found decimalAt(QStringView text) {
  qsizetype at = signAt(text, 0) ? 1 : 0;
  const qsizetype whole = digitsAt(text, at);
  at += whole;
  if (at < text.size() && text[at] == u'.') {
    const qsizetype part = digitsAt(text, at + 1);
    if (whole + part == 0) return {};
    at += 1 + part;
  } else if (whole == 0) {
    return {};
  }
  QString number = text.first(at).toString();
  if (at < text.size() && (text[at].toLower() == u'e' || text[at].toLower() == u'd')) {
    const qsizetype from = at + (signAt(text, at + 1) ? 2 : 1);
    if (const qsizetype power = digitsAt(text, from); power > 0) {
      number += u'e' + text.sliced(at + 1, from + power - at - 1).toString();
      at = from + power;
    }
  }
  bool held = false;
  const double value = number.toDouble(&held);
  return held && std::isfinite(value) ? Found{value, at} : Found{};
}

Found numberAt(QStringView text) {
  return text.startsWith(u'&') ? radixAt(text) : decimalAt(text);
}

}  // namespace

QString trimBlanks(QStringView text) {
  while (text.startsWith(u' ')) text = text.sliced(1);
  while (text.endsWith(u' ')) text.chop(1);
  return text.toString();
}

double val(QStringView text) {
  QString dense = text.toString();
  dense.removeIf([](QChar c) { return c == u' ' || c == u'\t' || c == u'\n'; });
  return numberAt(dense).number;
}

std::optional<double> numeric(QStringView text) {
  const QString whole = trimBlanks(text);
  const Found found = numberAt(whole);
  if (found.length == 0 || found.length != whole.size()) return std::nullopt;
  return found.number;
}

int toInteger(double number) {
  if (std::isnan(number)) return 0;
  constexpr double kLeast = std::numeric_limits<int>::min(),
                   kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::nearbyint(std::clamp(number, kLeast, kMost)));
}

}  // namespace korvane
