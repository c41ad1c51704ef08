// The profile reader and writer on any bytes: what is written is read back, and writing changes
// nothing else. The input is a file; its first bytes, up to a zero, are also the value.
#include <cstdlib>

#include "platform/files/profile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  const QByteArrayView file(data, static_cast<qsizetype>(size));
  profileValue(file, u"STARTUP", u"Theme");
  profileValue(file, u"\u00c4", u"\u00e4");

  const qsizetype zero = file.indexOf('\0');
  QString value =
      QString::fromUtf8(file.first(zero < 0 ? std::min<qsizetype>(file.size(), 64) : zero));
  for (QChar& c : value)
    if (c == u'\n' || c == u'\r') c = u' ';
  const bool utf16 = file.startsWith("\xFF\xFE");
  const QByteArray written = withProfileValue(file, u"STARTUP", u"Theme", value);
  if (profileValue(written, u"startup", u"THEME") != value) std::abort();
  const QByteArray again = withProfileValue(written, u"STARTUP", u"Theme", value);
  if (again != written) std::abort();
  if (utf16) return 0;

  // All bytes of the file but the line of the key are still there, in their order.
  const auto before = profileValue(file, u"STARTUP", u"Theme");
  if (!before && written.size() < file.size()) std::abort();
  if (!before) {
    qsizetype same = 0;
    while (same < file.size() && file[same] == written[same]) ++same;
    if (!written.endsWith(file.sliced(same))) std::abort();
  }
  return 0;
}
