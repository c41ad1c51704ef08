#include "platform/printing.h"

namespace korvane {
namespace {

// One way of a picture: where it lies and what is seen of it, in millimetres, and its pixels.
struct Way {
  double begin, length, seenBegin, seenLength;
  int pixels;
};

struct Cut {
  int first = 0, count = 0;      // pixels
  double begin = 0, length = 0;  // millimetres
};

Cut cut(const Way& way) {
  constexpr double kNone = 1e-6;  // of a pixel: what rounding leaves
  const double from = std::max(way.begin, way.seenBegin);
  const double to = std::min(way.begin + way.length, way.seenBegin + way.seenLength);
  if (way.pixels < 1 || way.length <= 0 || to <= from) return {};
  const double pixel = way.length / way.pixels;
  const int first = static_cast<int>(std::floor((from - way.begin) / pixel + kNone));
  const int end = static_cast<int>(std::ceil((to - way.begin) / pixel - kNone));
  const int begin = std::clamp(first, 0, way.pixels - 1);
  const int count = std::clamp(end, begin + 1, way.pixels) - begin;
  return {begin, count, way.begin + begin * pixel, count * pixel};
}

}  // namespace

Printing::Placed seenPart(const Printing::Placed& picture) {
  Printing::Placed seen = picture;
  seen.pixels = nullptr;
  if (!picture.pixels) return seen;
  const Pixels& whole = *picture.pixels;
  const Cut across =
      cut({picture.left, picture.width, picture.boxLeft, picture.boxWidth, whole.width});
  const Cut down =
      cut({picture.top, picture.height, picture.boxTop, picture.boxHeight, whole.height});
  if (across.count < 1 || down.count < 1) return seen;
  constexpr int kPixelBytes = 4;
  Pixels part = whole;
  part.bits += down.first * whole.bytesPerLine + qsizetype{across.first} * kPixelBytes;
  part.width = across.count;
  part.height = down.count;
  seen.pixels = std::make_shared<const Pixels>(std::move(part));
  seen.left = across.begin;
  seen.width = across.length;
  seen.top = down.begin;
  seen.height = down.length;
  return seen;
}

}  // namespace korvane
