#include "platform/imaging/picture_reader.h"

#include <libyuv/scale_argb.h>

#include "platform/imaging/heif_codec.h"
#include "platform/imaging/jpeg_codec.h"
#include "platform/imaging/opened_picture.h"
#include "platform/imaging/qt_images.h"

namespace korvane {
namespace {

const QString kNoMemory = u"There is not enough memory for it."_s;

FittedSize turnedSize(FittedSize size, QuarterTurn turn) {
  return turn.transposed ? FittedSize{size.height, size.width} : size;
}

// How a picture of a stored size comes to stand as `reading` asks for it.
struct Plan {
  Plan(FittedSize storedSize, int orientation, const Imaging::Reading& reading)
      : turn(reading.upright ? QuarterTurn::toUpright(orientation) : QuarterTurn()),
        whole(turnedSize(storedSize, turn)),
        asked(turnedSize(askedSize(whole.width, whole.height, reading), turn)) {}

  // Of pixels as they are stored, perhaps smaller by now.
  Imaging::Loaded finish(std::shared_ptr<const Pixels> pixels) const {
    if (pixels) pixels = scaledPixels(*pixels, asked);
    if (pixels && !turn.isNone()) pixels = turnedPixels(*pixels, turn);
    if (!pixels) return {nullptr, 0, 0, kNoMemory};
    return {std::move(pixels), whole.width, whole.height, {}};
  }

  QuarterTurn turn;
  FittedSize whole;  // upright
  FittedSize asked;  // as stored
};

Imaging::Loaded failed(const QString& why) {
  return {nullptr, 0, 0, why};
}

Imaging::Loaded loadByQt(OpenedPicture& file, const Imaging::Reading& reading) {
  QtImage image(file.device());
  QSize size = image.size();
  QImage read;
  if (!size.isValid()) read = image.read();  // it does not say before
  if (!image.fault().isEmpty()) return failed(image.fault());
  if (!read.isNull()) size = read.size();
  const Plan plan({size.width(), size.height()}, file.exif().orientation, reading);
  const bool smaller = plan.asked.width < size.width() || plan.asked.height < size.height();
  if (read.isNull())
    read = smaller ? image.read({plan.asked.width, plan.asked.height}) : image.read();
  if (read.isNull()) return failed(image.fault());
  return plan.finish(toPixels(std::move(read)));
}

Imaging::Loaded loadJpeg(OpenedPicture& file, const Imaging::Reading& reading) {
  const JpegHead& head = file.jpeg();
  if (tooLarge(head.width, head.height)) return failed(tooLargeText(head.width, head.height));
  if (head.width < 1 || head.height < 1) return failed(u"It is damaged or cut short."_s);
  const Plan plan({head.width, head.height}, file.exif().orientation, reading);
  const QByteArray bytes = file.whole();
  if (bytes.isEmpty()) return failed(file.fault());
  DecodedJpeg decoded = decodeJpeg(bytes, plan.asked);
  if (decoded.unusual) return loadByQt(file, reading);
  if (!decoded.pixels) return failed(u"It is damaged or cut short (%1)."_s.arg(decoded.fault));
  return plan.finish(std::move(decoded.pixels));
}

Imaging::Loaded loadHeif(OpenedPicture& file, Imaging::Reading reading) {
  HeifFile heif(file.pathBytes());
  auto pixels = heif.decode();
  if (!pixels) return failed(heif.fault());
  const Plan plan({pixels->width, pixels->height}, 1, reading);
  return plan.finish(std::move(pixels));
}

void aboutByQt(OpenedPicture& file, Imaging::About& about) {
  QtImage image(file.device());
  QSize size = image.size();
  if (!size.isValid() && image.fault().isEmpty()) size = image.read().size();
  about.error = image.fault();
  about.width = std::max(0, size.width());
  about.height = std::max(0, size.height());
}

void aboutJpeg(const JpegHead& head, Imaging::About& about) {
  about.width = head.width;
  about.height = head.height;
  if (head.width < 1 || head.height < 1)
    about.error = u"It is damaged or cut short."_s;
  else if (tooLarge(head.width, head.height))
    about.error = tooLargeText(head.width, head.height);
}

void aboutHeif(const QByteArray& path, Imaging::About& about) {
  const HeifFile file(path);
  about.width = file.width();
  about.height = file.height();
  about.taken = file.taken();
  about.error = file.fault();
}

}  // namespace

std::shared_ptr<const Pixels> scaledPixels(const Pixels& pixels, FittedSize size) {
  if (size.width == pixels.width && size.height == pixels.height)
    return std::make_shared<const Pixels>(pixels);
  if (size.width < 1 || size.height < 1 || tooLarge(size.width, size.height)) return nullptr;
  const bool near = 2 * size.width >= pixels.width && 2 * size.height >= pixels.height;
  if (!near || !pixels.opaque)
    return toPixels(toImage(pixels).scaled(size.width, size.height, Qt::IgnoreAspectRatio,
                                           Qt::SmoothTransformation));
  // Near to its size two neighbours in each direction are enough, at a tenth of the time. They come
  // out darker by up to 2 of 255, their alphas too, which is set right.
  const auto made = newPixels(size.width, size.height);
  if (!made) return nullptr;
  const int failure =
      libyuv::ARGBScale(pixels.bits, static_cast<int>(pixels.bytesPerLine), pixels.width,
                        pixels.height, reinterpret_cast<uchar*>(made->words), size.width * 4,
                        size.width, size.height, libyuv::kFilterBilinear);
  const auto count = static_cast<size_t>(size.width) * static_cast<size_t>(size.height);
  for (quint32& word : std::span(made->words, count)) word |= 0xff000000;
  return failure == 0 ? made->pixels : nullptr;
}

Imaging::About aboutPicture(const QString& path, bool upright) {
  OpenedPicture file(path);
  Imaging::About about;
  about.orientation = file.exif().orientation;
  about.taken = file.exif().taken;
  if (!file.fault().isEmpty())
    about.error = file.fault();
  else if (file.kind() == PictureKind::Jpeg)
    aboutJpeg(file.jpeg(), about);
  else if (file.kind() == PictureKind::Heif)
    aboutHeif(file.pathBytes(), about);
  else
    aboutByQt(file, about);
  if (upright && QuarterTurn::toUpright(about.orientation).transposed)
    std::swap(about.width, about.height);
  return about;
}

Imaging::Loaded loadPicture(const QString& path, const Imaging::Reading& reading) {
  OpenedPicture file(path);
  if (!file.fault().isEmpty()) return failed(file.fault());
  if (file.kind() == PictureKind::Heif) return loadHeif(file, reading);
  if (file.kind() == PictureKind::Jpeg) return loadJpeg(file, reading);
  return loadByQt(file, reading);
}

}  // namespace korvane
