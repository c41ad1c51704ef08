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
