#include "platform/imaging/picture_codecs.h"

#include <QImageReader>

#include "platform/imaging/heif_codec.h"
#include "platform/imaging/jpeg_codec.h"
#include "platform/imaging/picture_kind.h"
#include "platform/imaging/picture_reader.h"
#include "platform/imaging/picture_turner.h"

namespace korvane {
namespace {

using Levels = std::array<uchar, 256>;

Levels brightLevels(double gamma, double contrast) {
  constexpr double kMiddle = 127.5;
  Levels levels;
  for (size_t value = 0; value < levels.size(); ++value) {
    const double bright = 255 * std::pow(static_cast<double>(value) / 255, 1 / gamma);
    levels[value] = static_cast<uchar>(
        std::clamp(std::lround(kMiddle + (bright - kMiddle) * contrast), 0L, 255L));
  }
  return levels;
}

quint32 brightWord(quint32 word, const Levels& levels) {
  const quint32 alpha = word >> 24;
  quint32 bright = alpha;
  for (const int shift : {16, 8, 0}) {
    const quint32 value = (word >> shift) & 0xff;
    const quint32 level = alpha == 0xff ? levels[value]
                          : alpha == 0  ? 0
                                        : levels[std::min(255U, value * 255 / alpha)] * alpha / 255;
    bright = bright << 8 | level;
  }
  return bright;
}

}  // namespace

PictureCodecs::PictureCodecs() {
  QImageReader::setAllocationLimit(kMostBytes >> 20);
}

Imaging::About PictureCodecs::about(const QString& path, bool upright) const {
  return aboutPicture(path, upright);
}

bool PictureCodecs::mayRead(QStringView name) const {
  static const QList<QByteArray> byQt = QImageReader::supportedImageFormats();
  static const bool heic = canReadHeif(false), avif = canReadHeif(true);
  QByteArray format;
  switch (pictureKindOfName(name, &format)) {
    case PictureKind::Jpeg:
      return true;
    case PictureKind::Heif:
      return format == "avif" ? avif : heic;
    case PictureKind::AnimatedCursor:
    case PictureKind::Other:
      return byQt.contains(format);
    case PictureKind::None:
      break;
  }
  return false;
}

Imaging::Loaded PictureCodecs::load(const QString& path, const Reading& reading) const {
  return loadPicture(path, reading);
}

QByteArray PictureCodecs::jpeg(const Pixels& pixels, int quality) const {
  return encodeJpeg(pixels, quality);
}

QByteArray PictureCodecs::turned(const QString& path, int degrees, bool keepKind, bool upright,
                                 QString* error) const {
  return turnPicture(path, degrees, keepKind, upright, error);
}

std::shared_ptr<const Pixels> PictureCodecs::turned(const Pixels& pixels, int degrees) const {
  return turnedPixels(pixels, QuarterTurn::clockwise(degrees));
}

std::shared_ptr<const Pixels> PictureCodecs::scaled(const Pixels& pixels, int width,
                                                    int height) const {
  return scaledPixels(pixels, {width, height});
}

std::shared_ptr<const Pixels> PictureCodecs::brightened(const Pixels& pixels, double gamma,
                                                        double contrast) const {
  const auto made = newPixels(pixels.width, pixels.height);
  if (!made) return nullptr;
  made->pixels->opaque = pixels.opaque;
  const Levels levels = brightLevels(gamma, contrast);
  quint32* to = made->words;
  for (int y = 0; y < pixels.height; ++y) {
    const auto* from = reinterpret_cast<const quint32*>(pixels.bits + y * pixels.bytesPerLine);
    for (int x = 0; x < pixels.width; ++x) *to++ = brightWord(from[x], levels);
  }
  return made->pixels;
}

}  // namespace korvane
