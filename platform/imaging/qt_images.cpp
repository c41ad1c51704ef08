#include "platform/imaging/qt_images.h"

#include "platform/imaging/picture_kind.h"

namespace korvane {
namespace {

bool isIcon(const QByteArray& format) {
  return format == "ico" || format == "cur";
}

}  // namespace

QImage toImage(const Pixels& pixels) {
  const auto format = pixels.opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
  return QImage(pixels.bits, pixels.width, pixels.height, pixels.bytesPerLine, format);
}

std::shared_ptr<const Pixels> toPixels(QImage image) {
  const bool opaque = !image.hasAlphaChannel();
  image.convertTo(opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return nullptr;
  const auto kept = std::make_shared<const QImage>(std::move(image));
  return std::make_shared<const Pixels>(
      Pixels{kept->width(), kept->height(), kept->bytesPerLine(), kept->constBits(), opaque, kept});
}

QtImage::QtImage(QIODevice& device) {
  reader_.setDecideFormatFromContent(true);
  reader_.setDevice(&device);
  format_ = reader_.format();
  if (!isFormatRead(format_)) {
    format_.clear();
    fault_ = u"It is no picture of a kind that can be read here."_s;
  } else if (isIcon(format_)) {
    chooseLargest();
  }
}

void QtImage::chooseLargest() {
  constexpr int kMostIcons = 64;
  const int count = std::min(reader_.imageCount(), kMostIcons);
  int largest = 0, width = 0;
  for (int i = 0; i < count && reader_.jumpToImage(i); ++i) {
    if (reader_.size().width() <= width) continue;
    largest = i;
    width = reader_.size().width();
  }
  if (count > 0) reader_.jumpToImage(largest);
}

QSize QtImage::size() {
  if (!fault_.isEmpty()) return {};
  const QSize size = reader_.size();
  if (!tooLarge(size.width(), size.height())) return size;
  fault_ = tooLargeText(size.width(), size.height());
  return {};
}

QImage QtImage::read(QSize size) {
  reader_.setScaledSize(size);
  return read();
}

QImage QtImage::read() {
  if (!fault_.isEmpty()) return {};
  QImage image = reader_.read();
  if (image.isNull()) fault_ = u"It is damaged or cut short."_s;
  return image;
}

bool QtImage::hasMore() {
  return !isIcon(format_) && reader_.imageCount() > 1;
}

}  // namespace korvane
