#include "platform/imaging/pixel_buffer.h"

#include <QLocale>
#include <new>

namespace korvane {
namespace {

// part * of / whole, to the nearest, at least 1. None is over 2^31.
int share(int part, int of, int whole) {
  return static_cast<int>(std::max<qint64>(1, (qint64{part} * of + whole / 2) / whole));
}

}  // namespace

FittedSize fittedSize(int width, int height, int boxWidth, int boxHeight) {
  if (width < 1 || height < 1 || boxWidth < 1 || boxHeight < 1) return {1, 1};
  const bool wide = qint64{boxWidth} * height <= qint64{boxHeight} * width;
  return wide ? FittedSize{boxWidth, share(boxWidth, height, width)}
              : FittedSize{share(boxHeight, width, height), boxHeight};
}

FittedSize askedSize(int width, int height, const Imaging::Reading& reading) {
  const FittedSize whole{width, height};
  if (reading.width < 1 || reading.height < 1) return whole;
  FittedSize asked = fittedSize(width, height, reading.width, reading.height);
  if (reading.cover) {
    // The side that lies inside the box is made as long as the box, the other one beyond it.
    const double larger = std::max(static_cast<double>(reading.width) / width,
                                   static_cast<double>(reading.height) / height);
    if (width * larger > 1e9 || height * larger > 1e9) return whole;
    asked = {std::max(reading.width, qRound(width * larger)),
             std::max(reading.height, qRound(height * larger))};
  }
  const bool enlarges = asked.width > width || asked.height > height;
  if (enlarges && (!reading.enlarge || tooLarge(asked.width, asked.height))) return whole;
  return asked;
}

bool tooLarge(qint64 width, qint64 height) {
  constexpr qint64 kMostPixels = Imaging::kMostBytes / 4;
  return width > kMostPixels || height > kMostPixels || width * height > kMostPixels;
}

QString tooLargeText(qint64 width, qint64 height) {
  const QLocale plain(QLocale::English);
  return u"It has %1 x %2 pixels, more than the %3 million that one picture may have here. Make a "
         "smaller copy of it."_s.arg(plain.toString(width), plain.toString(height),
                                     plain.toString(Imaging::kMostBytes / 4'000'000));
}

std::optional<PixelBuffer> newPixels(int width, int height) {
  if (width < 1 || height < 1 || tooLarge(width, height)) return std::nullopt;
  const size_t count = static_cast<size_t>(width) * static_cast<size_t>(height);
  const std::shared_ptr<quint32[]> words(new (std::nothrow) quint32[count]);
  if (!words) return std::nullopt;
  auto pixels = std::make_shared<Pixels>(
      Pixels{width, height, width * 4, reinterpret_cast<const uchar*>(words.get()), true, words});
  return PixelBuffer{std::move(pixels), words.get()};
}

}  // namespace korvane
