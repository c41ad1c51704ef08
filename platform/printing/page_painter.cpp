#include "platform/printing/page_painter.h"

#include <QImage>
#include <QPainter>

namespace korvane {
namespace {

constexpr double kInch = 25.4;  // millimetres

// As it looks on white paper. The pixels must outlive it.
QImage onPaper(const Pixels& pixels) {
  const QImage image(pixels.bits, pixels.width, pixels.height, pixels.bytesPerLine,
                     pixels.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
  if (pixels.opaque) return image;
  QImage paper(image.size(), QImage::Format_RGB32);
  paper.fill(Qt::white);
  QPainter(&paper).drawImage(0, 0, image);
  return paper;
}

QImage noFinerThan(const QImage& image, QSizeF dots) {
  const QSize most(static_cast<int>(std::ceil(dots.width())),
                   static_cast<int>(std::ceil(dots.height())));
  const QSize size = image.size().boundedTo(most).expandedTo({1, 1});
  if (size == image.size()) return image;
  return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

bool paintPage(QPagedPaintDevice& device, const Printing::Placed& picture) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  if (const Printing::Placed seen = seenPart(picture); seen.pixels) {
    const double across = device.logicalDpiX() / kInch, down = device.logicalDpiY() / kInch;
    const auto dots = [&](double left, double top, double width, double height) {
      return QRectF(left * across, top * down, width * across, height * down);
    };
    const QRectF place = dots(seen.left, seen.top, seen.width, seen.height);
    const QImage image = noFinerThan(onPaper(*seen.pixels), place.size());
    painter.setClipRect(dots(seen.boxLeft, seen.boxTop, seen.boxWidth, seen.boxHeight));
    painter.drawImage(place, image);
  }
  return painter.end();
}

}  // namespace korvane
