#include "view/drawing/picture_cache.h"

namespace korvane {
namespace {

constexpr int kLimitKiB = 24 << 10;

}  // namespace

PictureCache::PictureCache(Graphics& graphics) : graphics_(graphics), kept_(kLimitKiB) {}

PictureSource PictureCache::source(const Picture& picture) const {
  if (picture.bytes) return {picture.bytes, *picture.bytes, picture.bytes->startsWith("<svg")};
  if (picture.name.isEmpty()) return {};
  const PicturePtr file = graphics_.loadGraphic(picture.group, picture.name);
  if (!file) return {};
  return {file, file->bytes, file->svg()};
}

QImage PictureCache::drawn(const PictureSource& from, QSize size, Fit fit) {
  std::optional<QImage> image = ahead_.take({from.owner.get(), size.width(), size.height(), fit});
  return image ? *std::move(image) : drawPicture(from, size, fit);
}

QPixmap PictureCache::pixmap(const Picture& picture, QSize size, Fit fit) {
  const PictureSource from = source(picture);
  if (!from.owner || size.isEmpty()) return {};
  const PictureKey key{from.owner.get(), size.width(), size.height(), fit};
  if (const Kept* found = kept_.object(key)) return found->pixmap;
  QPixmap pixmap = QPixmap::fromImage(drawn(from, size, fit), Qt::NoOpaqueDetection);
  const int cost = 1 + pixmap.width() * pixmap.height() / 256;
  kept_.insert(key, new Kept{from.owner, pixmap}, cost);
  return pixmap;
}

void PictureCache::prepare(const Picture& picture, QSize size, Fit fit) {
  const PictureSource from = source(picture);
  if (!from.owner || size.isEmpty()) return;
  const PictureKey key{from.owner.get(), size.width(), size.height(), fit};
  if (!kept_.contains(key)) ahead_.ask(key, from);
}

QPixmap PictureCache::render(const Picture& picture, QSize size, Fit fit) {
  return QPixmap::fromImage(drawn(source(picture), size, fit), Qt::NoOpaqueDetection);
}

std::optional<Picture> PictureCache::pressedPartner(const Picture& picture) {
  if (picture.bytes || picture.name.isEmpty()) return std::nullopt;
  Picture partner{picture.group, picture.name + u'b', nullptr};
  if (!graphics_.loadGraphic(partner.group, partner.name)) return std::nullopt;
  return partner;
}

}  // namespace korvane
