#include "view/drawing/fresh_image.h"

#include <sys/mman.h>
#include <unistd.h>

#include <QBackingStore>
#include <QWidget>

namespace korvane {
namespace {

// A system that cannot do it ahead does it page by page, later.
void touchAhead(QImage& image) {
  const auto page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto from = reinterpret_cast<uintptr_t>(image.bits());
  const uintptr_t first = (from + page - 1) / page * page;
  const uintptr_t end = (from + static_cast<uintptr_t>(image.sizeInBytes())) / page * page;
  if (end > first) madvise(reinterpret_cast<void*>(first), end - first, MADV_POPULATE_WRITE);
}

}  // namespace

QImage freshImage(QSize size, QImage::Format format) {
  QImage image(size, format);
  if (!image.isNull()) touchAhead(image);
  return image;
}

void readyBackingStore(const QWidget& widget) {
  QBackingStore* store = widget.window()->backingStore();
  if (!store) return;
  if (auto* image = dynamic_cast<QImage*>(store->paintDevice())) touchAhead(*image);
}

}  // namespace korvane
