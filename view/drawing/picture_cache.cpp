#include "view/drawing/picture_cache.h"

namespace korvane {
namespace {

constexpr int kLimitKiB = 24 << 10;
constexpr int kMostOfOne = kLimitKiB / 2;  // what does not fit is kept all the same

QPixmap pixmapOf(QImage image) {
  return QPixmap::fromImage(std::move(image), Qt::NoOpaqueDetection);
}

// What is decoded and has the size needs no drawing. Pixels of no size are a broken picture.
bool fits(const PictureSource& source, QSize size, Fit fit) {
  return source.owner && source.bytes.isEmpty() &&
         (source.image.isNull() || sizeIn(source.image.size(), size, fit) == source.image.size());
}

}  // namespace

PictureCache::PictureCache(Graphics& graphics)
    : graphics_(graphics), kept_(kLimitKiB), ahead_([this] {
        QMetaObject::invokeMethod(
            &here_, [this] { takeDrawn(); }, Qt::QueuedConnection);
      }) {}

PictureSource PictureCache::source(const Picture& picture) const {
  if (picture.pixels) return {picture.pixels, {}, false, imageOf(picture.pixels)};
  if (picture.bytes) return {picture.bytes, *picture.bytes, picture.bytes->startsWith("<svg")};
  if (picture.name.isEmpty()) return {};
  const PicturePtr file = graphics_.loadGraphic(picture.group, picture.name);
  if (!file) return {};
  return {file, file->bytes, file->svg()};
}

const PictureCache::Kept* PictureCache::kept(const PictureKey& key) const {
  const Kept* found = kept_.object(key);
  return found && !found->owner.expired() ? found : nullptr;
}

QImage PictureCache::drawn(const PictureSource& from, QSize size, Fit fit) {
  std::optional<QImage> image = ahead_.take({from.owner.get(), size.width(), size.height(), fit});
  return image ? *std::move(image) : drawPicture(from, size, fit);
}

QPixmap PictureCache::pixmap(const Picture& picture, QSize size, Fit fit) {
  const PictureSource from = source(picture);
  if (!from.owner || size.isEmpty()) return {};
  if (fits(from, size, fit)) return pixmapOf(from.image);
  const PictureKey key{from.owner.get(), size.width(), size.height(), fit};
  if (const Kept* found = kept(key)) return found->pixmap;
  return keep(key, from, drawn(from, size, fit));
}

QPixmap PictureCache::keep(const PictureKey& key, const PictureSource& from, QImage image) {
  QPixmap pixmap = pixmapOf(std::move(image));
  const int cost = 1 + pixmap.width() * pixmap.height() / 256;
  kept_.insert(key, new Kept{from.owner, pixmap}, std::min(cost, kMostOfOne));
  return pixmap;
}

std::optional<QPixmap> PictureCache::drawnPixmap(const Picture& picture, QSize size) {
  const PictureSource from = source(picture);
  if (!from.owner || size.isEmpty()) return QPixmap();
  if (fits(from, size, Fit::Inside)) return pixmapOf(from.image);
  const PictureKey key{from.owner.get(), size.width(), size.height(), Fit::Inside};
  if (const Kept* found = kept(key)) return found->pixmap;
  ahead_.askNow(key, from);
  return std::nullopt;
}

void PictureCache::whenDrawn(QObject* who, std::function<void()> again) {
  const auto same = [who](const auto& each) { return each.first == who; };
  if (std::ranges::none_of(waiting_, same)) waiting_.emplace_back(who, std::move(again));
}

void PictureCache::takeDrawn() {
  const QHash<PictureKey, DrawAhead::Drawn> drawn = ahead_.takeNow();
  if (drawn.isEmpty()) return;
  for (auto each = drawn.cbegin(); each != drawn.cend(); ++each)
    keep(each.key(), each->source, each->image);
  for (const auto& [who, again] : std::exchange(waiting_, {}))
    if (who) again();
}

void PictureCache::prepare(const Picture& picture, QSize size, Fit fit) {
  const PictureSource from = source(picture);
  if (!from.owner || size.isEmpty() || fits(from, size, fit)) return;
  const PictureKey key{from.owner.get(), size.width(), size.height(), fit};
  if (!kept(key)) ahead_.ask(key, from);
}

QPixmap PictureCache::render(const Picture& picture, QSize size, Fit fit) {
  return pixmapOf(drawn(source(picture), size, fit));
}

std::optional<Picture> PictureCache::pressedPartner(const Picture& picture) {
  if (picture.bytes || picture.pixels || picture.name.isEmpty()) return std::nullopt;
  Picture partner{picture.group, picture.name + u'b', nullptr};
  if (!graphics_.loadGraphic(partner.group, partner.name)) return std::nullopt;
  return partner;
}

}  // namespace korvane
