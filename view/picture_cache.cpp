#include "view/picture_cache.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

#include "view/fresh_image.h"

namespace korvane {
namespace {

constexpr int kLimitKiB = 24 << 10;

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

QPixmap drawnSvg(const QByteArray& bytes, QSize size, Fit fit) {
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
  return QPixmap::fromImage(std::move(image), Qt::NoOpaqueDetection);
}

// As large as `size` asks, what Fit::Cover hangs over cut off.
QImage fitted(const QImage& image, QSize size, Fit fit) {
  const QSize target = scaledTo(image.size(), size, fit).expandedTo({1, 1});
  const QSize seen = fit == Fit::Cover ? size : target;
  if (seen == image.size()) return image;
  QImage drawn = freshImage(
      seen, image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  QPainter painter(&drawn);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QPoint corner((seen.width() - target.width()) / 2, (seen.height() - target.height()) / 2);
  painter.drawImage(QRect(corner, target), image);
  return drawn;
}

// A picture much larger than its place is made smaller while it is read.
QPixmap decoded(const QByteArray& bytes, QSize size, Fit fit) {
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
  return QPixmap::fromImage(fitted(image, size, fit));
}

}  // namespace

PictureCache::PictureCache(Graphics& graphics) : graphics_(graphics), kept_(kLimitKiB) {}

PictureCache::Source PictureCache::source(const Picture& picture) const {
  if (picture.bytes) return {picture.bytes, *picture.bytes, picture.bytes->startsWith("<svg")};
  if (picture.name.isEmpty()) return {};
  const PicturePtr file = graphics_.loadGraphic(picture.group, picture.name);
  if (!file) return {};
  return {file, file->bytes, file->svg()};
}

QPixmap PictureCache::drawn(const Source& source, QSize size, Fit fit) {
  if (!source.owner || size.isEmpty()) return {};
  return source.svg ? drawnSvg(source.bytes, size, fit) : decoded(source.bytes, size, fit);
}

QPixmap PictureCache::pixmap(const Picture& picture, QSize size, Fit fit) {
  const Source from = source(picture);
  if (!from.owner || size.isEmpty()) return {};
  const Key key{from.owner.get(), size.width(), size.height(), fit};
  if (const Kept* found = kept_.object(key)) return found->pixmap;
  QPixmap pixmap = drawn(from, size, fit);
  const int cost = 1 + pixmap.width() * pixmap.height() / 256;
  kept_.insert(key, new Kept{from.owner, pixmap}, cost);
  return pixmap;
}

QPixmap PictureCache::render(const Picture& picture, QSize size, Fit fit) const {
  return drawn(source(picture), size, fit);
}

std::optional<Picture> PictureCache::pressedPartner(const Picture& picture) {
  if (picture.bytes || picture.name.isEmpty()) return std::nullopt;
  Picture partner{picture.group, picture.name + u'b', nullptr};
  if (!graphics_.loadGraphic(partner.group, partner.name)) return std::nullopt;
  return partner;
}

}  // namespace korvane
