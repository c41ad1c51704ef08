// Pictures for the tests: four corners of four colours, in files of any kind.
#pragma once

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>

#include "platform/imaging.h"
#include "tests/fakes/made_pictures.h"

namespace korvane {

// Red, green, blue and yellow, from the top left, row by row.
constexpr QRgb kCorners[] = {0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffff00};

inline QImage corners(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      image.setPixel(x, y, kCorners[(x * 2 >= width) + 2 * (y * 2 >= height)]);
  return image;
}

// The stored picture that is `upright` once it is turned as EXIF says: for each orientation the
// sides of the scene at which the first row and the first column of the file stand (Exif 2.32,
// 4.6.5.1.6).
inline QImage storedAs(const QImage& upright, int orientation) {
  const int w = upright.width(), h = upright.height();
  QImage stored(orientation > 4 ? QSize(h, w) : QSize(w, h), upright.format());
  for (int y = 0; y < stored.height(); ++y)
    for (int x = 0; x < stored.width(); ++x) {
      const int u = orientation > 4 ? y : x, v = orientation > 4 ? x : y;
      const bool right =
          orientation == 2 || orientation == 3 || orientation == 6 || orientation == 7;
      const bool bottom =
          orientation == 3 || orientation == 4 || orientation == 7 || orientation == 8;
      stored.setPixel(x, y, upright.pixel(right ? w - 1 - u : u, bottom ? h - 1 - v : v));
    }
  return stored;
}

inline QByteArray fileOf(const QImage& image, const char* format) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  QImageWriter writer(&bytes, format);
  writer.setQuality(95);
  return writer.write(image) ? bytes.data() : QByteArray();
}

inline QRgb pixelAt(const Pixels& pixels, int x, int y) {
  return reinterpret_cast<const QRgb*>(pixels.bits + y * pixels.bytesPerLine)[x];
}

// Which of the four colours stand in the corners, as digits from the top left, row by row; '?' for
// another one.
inline std::string cornersOf(const Pixels* pixels) {
  if (!pixels) return "none";
  std::string found;
  for (const auto& [x, y] : {std::pair(1, 1), {3, 1}, {1, 3}, {3, 3}}) {
    const QRgb colour = pixelAt(*pixels, pixels->width * x / 4, pixels->height * y / 4);
    char digit = '?';
    for (int i = 0; i < 4; ++i) {
      const QRgb wanted = kCorners[i];
      const auto near = [](int a, int b) { return std::abs(a - b) < 24; };
      if (near(qRed(colour), qRed(wanted)) && near(qGreen(colour), qGreen(wanted)) &&
          near(qBlue(colour), qBlue(wanted)))
        digit = static_cast<char>('0' + i);
    }
    found += digit;
  }
  return found;
}

}  // namespace korvane
