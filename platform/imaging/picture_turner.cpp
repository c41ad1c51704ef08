#include "platform/imaging/picture_turner.h"

#include <QBuffer>
#include <QImageWriter>
#include <QTransform>

#include "platform/imaging/gif_writer.h"
#include "platform/imaging/jpeg_codec.h"
#include "platform/imaging/picture_reader.h"
#include "platform/imaging/picture_source.h"
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

QByteArray turnByQt(PictureSource& source, QuarterTurn turn, QString* error) {
  QtImage reader(source.device());
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
  const bool exact = QByteArrayView(source.start())
                         .first(std::min(kWebpHead, source.start().size()))
                         .contains("VP8L");
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

QByteArray turnOpened(PictureSource& source, const QString& path, int degrees, bool keepKind,
                      bool upright, QString* error) {
  const auto stands = upright ? QuarterTurn::toUpright(source.exif().orientation) : QuarterTurn();
  const QuarterTurn turn = stands.then(QuarterTurn::clockwise(degrees));
  switch (source.kind()) {
    case PictureKind::Jpeg: {
      if (tooLarge(source.jpeg().width, source.jpeg().height)) {
        *error = tooLargeText(source.jpeg().width, source.jpeg().height);
        return {};
      }
      const QByteArray bytes = source.whole();
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
  return keepKind ? turnByQt(source, turn, error) : turnIntoJpeg(path, degrees, upright, error);
}

}  // namespace

QByteArray turnPicture(const QString& path, int degrees, bool keepKind, bool upright,
                       QString* error) {
  PictureSource source(path);
  QString fault = source.fault();
  QByteArray made;
  if (fault.isEmpty()) made = turnOpened(source, path, degrees, keepKind, upright, &fault);
  if (!made.isEmpty()) return made;
  if (fault.isEmpty()) fault = source.fault();
  if (error) *error = fault.isEmpty() ? u"There is not enough memory for it."_s : fault;
  return {};
}

}  // namespace korvane
