// The reader of attached pictures on any bytes: it ends, and gives no more than it was given.
#include <QBuffer>
#include <cstdlib>

#include "library/tags/cover_art.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  QByteArray bytes =
      QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  QBuffer file(&bytes);
  file.open(QIODevice::ReadOnly);
  const auto picture = attachedPicture(file);
  if (!picture) return 0;
  if (picture->isEmpty() || !bytes.contains(*picture)) std::abort();
  if (!picture->endsWith(imageWithin(*picture))) std::abort();
  return 0;
}
