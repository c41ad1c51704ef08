#include "platform/imaging/picture_turner.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTransform>

#include "platform/imaging/gif_writer.h"
#include "platform/imaging/jpeg_codec.h"
#include "platform/imaging/opened_picture.h"
#include "platform/imaging/picture_reader.h"
#include "platform/imaging/qt_images.h"

namespace korvane {
namespace {

constexpr int kJpegQuality = 90;

QImage turnedImage(const QImage& image, QuarterTurn turn) {
  // Its rows as columns: a quarter to the right of what is upside down.
  const QImage standing =
      turn.transposed ? image.mirrored(false, true).transformed(QTransform().rotate(90)) : image;
  return turn.mirrored || turn.flipped ? standing.mirrored(turn.mirrored, turn.flipped) : standing;
}

QByteArray written(const QImage& image, const QByteArray& format, bool exact, QString* error) {
  if (format == "gif") return gifOf(image);
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QImageWriter writer(&bytes, format);
  if (format == "webp") writer.setQuality(exact ? 100 : kJpegQuality);  // 100 is without loss
  if (format == "tiff") writer.setCompression(1);                       // LZW
  if (writer.write(image)) return bytes.data();
  if (writer.error() == QImageWriter::UnsupportedFormatError)
    *error = u"A picture of its kind cannot be written here. Make a JPEG of it to turn it."_s;
  return {};
}

QByteArray turnByQt(OpenedPicture& file, QuarterTurn turn, QString* error) {
  QtImage reader(file.device());
  const QByteArray format = reader.format();
  reader.size();  // one that is too large is refused by now
  if (reader.hasMore()) {
    *error = u"It holds several pictures, of which only the first would be left."_s;
    return {};
  }
  const QImage image = reader.read();
  if (image.isNull()) {
    *error = reader.fault();
    return {};
  }
  constexpr qsizetype kWebpHead = 64;
  const bool exact =
      QByteArrayView(file.start()).first(std::min(kWebpHead, file.start().size())).contains("VP8L");
  return written(turnedImage(image, turn), format, exact, error);
}

QByteArray turnIntoJpeg(const QString& path, int degrees, bool upright, QString* error) {
  Imaging::Reading reading;
  reading.upright = upright;
  const Imaging::Loaded loaded = loadPicture(path, reading);
  *error = loaded.error;
  if (!loaded.pixels) return {};
  const auto pixels = turnedPixels(*loaded.pixels, QuarterTurn::clockwise(degrees));
  return pixels ? encodeJpeg(*pixels, kJpegQuality) : QByteArray();
}

QByteArray turnOpened(OpenedPicture& file, const QString& path, int degrees, bool keepKind,
                      bool upright, QString* error) {
  const auto stands = upright ? QuarterTurn::toUpright(file.exif().orientation) : QuarterTurn();
  const QuarterTurn turn = stands.then(QuarterTurn::clockwise(degrees));
  switch (file.kind()) {
    case PictureKind::Jpeg: {
      if (tooLarge(file.jpeg().width, file.jpeg().height)) {
        *error = tooLargeText(file.jpeg().width, file.jpeg().height);
        return {};
      }
      const QByteArray bytes = file.whole();
      return bytes.isEmpty() ? QByteArray() : turnJpeg(bytes, turn, upright, error);
    }
    case PictureKind::Heif:
    case PictureKind::AnimatedCursor:
      if (!keepKind) return turnIntoJpeg(path, degrees, upright, error);
      *error = u"A picture of its kind cannot be written here. Make a JPEG of it to turn it."_s;
      return {};
    case PictureKind::None:
    case PictureKind::Other:
      break;
  }
  return keepKind ? turnByQt(file, turn, error) : turnIntoJpeg(path, degrees, upright, error);
}

}  // namespace

QByteArray turnPicture(const QString& path, int degrees, bool keepKind, bool upright,
                       QString* error) {
  OpenedPicture file(path);
  QString fault = file.fault();
  QByteArray made;
  if (fault.isEmpty()) made = turnOpened(file, path, degrees, keepKind, upright, &fault);
  if (!made.isEmpty()) return made;
  if (fault.isEmpty()) fault = file.fault();
  if (error) *error = fault.isEmpty() ? u"There is not enough memory for it."_s : fault;
  return {};
}

}  // namespace korvane
