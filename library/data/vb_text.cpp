#include "library/data/vb_text.h"

namespace korvane {

QString fixSingleQuote(const QString& text) {
  return trimBlanks(QString(text).replace(u'\'', "''"_L1));
}

QString fixDoubleQuote(const QString& text) {
  return trimBlanks(QString(text).replace(u'"', u'\''));
}

QString cut(const QString& text, int width) {
  if (text.size() <= width) return text;
  const bool splitsPair = width > 0 && text[width - 1].isHighSurrogate();
  return text.first(splitsPair ? width - 1 : width);
}

}  // namespace korvane
