#include "view/drawing/picture_drawing.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include "view/drawing/fresh_image.h"

namespace korvane {
namespace {

constexpr int kRounding = 2;  // pixels

QSize scaledTo(QSize natural, QSize size, Fit fit) {
  switch (fit) {
    case Fit::Inside:
      return natural.scaled(size, Qt::KeepAspectRatio);
    case Fit::Cover:
      return natural.scaled(size, Qt::KeepAspectRatioByExpanding);
    case Fit::Stretch:
      return size;
  }
  Q_UNREACHABLE();
}

QImage drawnSvg(const QByteArray& bytes, QSize size, Fit fit) {
  QSvgRenderer renderer(bytes);
  const QSize natural = renderer.defaultSize();
  if (!renderer.isValid() || natural.isEmpty()) return {};
  const QSize target = scaledTo(natural, size, fit == Fit::Cover ? Fit::Stretch : fit);
  const bool fills = fit != Fit::Inside;  // what fills its place hides what lies below
  QImage image = freshImage(target.expandedTo({1, 1}),
                            fills ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
  image.fill(fills ? Qt::black : Qt::transparent);
  QPainter painter(&image);
  renderer.render(&painter, QRectF(image.rect()));
  painter.end();
  return image;
}

// As large as `size` asks, what Fit::Cover hangs over cut off.
QImage fitted(const QImage& image, QSize size, Fit fit) {
  const QSize target = sizeIn(image.size(), size, fit).expandedTo({1, 1});
  const QSize seen = fit == Fit::Cover ? size : target;
  if (seen == image.size()) return image;
  QImage drawn = freshImage(
      seen, image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  // A painter looks at the four nearest pixels of its source, which is too few for a small copy.
  const bool small = target.width() * 2 <= image.width();
  const QImage near =
      small ? image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation) : image;
  QPainter painter(&drawn);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QPoint corner((seen.width() - target.width()) / 2, (seen.height() - target.height()) / 2);
  painter.drawImage(QRect(corner, target), near);
  return drawn;
}

// A picture much larger than its place is made smaller while it is read.
QImage decoded(const QByteArray& bytes, QSize size, Fit fit) {
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  const QSize natural = reader.size();
  QImage image;
  if (natural.isValid() && !natural.isEmpty()) {
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QSize target = scaledTo(turned ? natural.transposed() : natural, size, fit);
    const QSize stored = turned ? target.transposed() : target;
    if (stored.width() * 2 <= natural.width())
      reader.setScaledSize(stored.expandedTo({1, 1}));
    else if (reader.imageFormat() == QImage::Format_RGB32)
      image = freshImage(natural, QImage::Format_RGB32);  // the reader draws into it
  }
  if (!reader.read(&image)) return {};
  return fitted(image, size, fit);
}

}  // namespace

QImage imageOf(const std::shared_ptr<const Pixels>& pixels) {
  if (!pixels || pixels->width <= 0 || pixels->height <= 0) return {};
  using Owner = std::shared_ptr<const Pixels>;
  return QImage(
      pixels->bits, pixels->width, pixels->height, pixels->bytesPerLine,
      pixels->opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied,
      [](void* owner) { delete static_cast<Owner*>(owner); }, new Owner(pixels));
}

QSize sizeIn(QSize natural, QSize room, Fit fit) {
  const QSize due = scaledTo(natural, room, fit);
  const bool near = std::abs(due.width() - natural.width()) <= kRounding &&
                    std::abs(due.height() - natural.height()) <= kRounding;
  return fit == Fit::Inside && near ? natural : due;
}

QImage drawPicture(const PictureSource& source, QSize size, Fit fit) {
  if (!source.owner || size.isEmpty()) return {};
  if (!source.image.isNull()) return fitted(source.image, size, fit);
  return source.svg ? drawnSvg(source.bytes, size, fit) : decoded(source.bytes, size, fit);
}

}  // namespace korvane
