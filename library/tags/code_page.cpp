#include "library/tags/code_page.h"

#include <unicode/ucnv.h>

#include <memory>

#include "platform/windows1252.h"

namespace korvane {
namespace {

struct Close {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, Close>;

Converter open(const QByteArray& name) {
  UErrorCode error = U_ZERO_ERROR;
  Converter converter(ucnv_open(name.constData(), &error));
  return U_SUCCESS(error) ? std::move(converter) : nullptr;
}

}  // namespace

CodePage::CodePage(const QString& name) {
  const QByteArray wanted = name.trimmed().toLatin1();
  if (!wanted.isEmpty() && wanted != "NO" && open(wanted)) converter_ = wanted;
}

QString CodePage::decode(QByteArrayView bytes) const {
  const Converter converter = converter_.isEmpty() ? nullptr : open(converter_);
  if (!converter) return fromWindows1252(bytes);
  QString text(2 * bytes.size(), Qt::Uninitialized);
  UErrorCode error = U_ZERO_ERROR;
  const int length = ucnv_toUChars(converter.get(), reinterpret_cast<UChar*>(text.data()),
                                   static_cast<int>(text.size()), bytes.data(),
                                   static_cast<int>(bytes.size()), &error);
  text.truncate(U_SUCCESS(error) ? length : 0);
  return text;
}

}  // namespace korvane
