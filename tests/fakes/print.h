// Texts in the reports of failed checks. In the global namespace, where Qt's types are.
#pragma once

#include <QByteArray>
#include <QString>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toUtf8().constData() << '"';
}
inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
  *out << '"' << bytes.toPercentEncoding(" !\"#$&'()*+,/:;<=>?@[]^`{|}").constData() << '"';
}
