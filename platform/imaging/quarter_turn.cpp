#include "platform/imaging/quarter_turn.h"

#include "platform/imaging/pixel_buffer.h"

namespace korvane {

QuarterTurn QuarterTurn::toUpright(int orientation) {
  static constexpr QuarterTurn kTurns[] = {
      {false, false, false},  // 1: upright
      {false, true, false},   // 2: mirrored
      {false, true, true},    // 3: upside down
      {false, false, true},   // 4: upside down and mirrored
      {true, false, false},   // 5: lies on its left side, mirrored
      {true, true, false},    // 6: lies on its left side
      {true, true, true},     // 7: lies on its right side, mirrored
      {true, false, true},    // 8: lies on its right side
  };
  return orientation >= 1 && orientation <= 8 ? kTurns[orientation - 1] : QuarterTurn();
}

QuarterTurn QuarterTurn::clockwise(int degrees) {
  switch (((degrees % 360) + 360) % 360) {
    case 90:
      return {true, true, false};
    case 180:
      return {false, true, true};
    case 270:
      return {true, false, true};
    default:
      return {};
  }
}

// A transposition that comes later makes of a mirroring a flip, and the other way round.
QuarterTurn QuarterTurn::then(QuarterTurn next) const {
  const bool m = next.transposed ? flipped : mirrored, f = next.transposed ? mirrored : flipped;
  return {transposed != next.transposed, m != next.mirrored, f != next.flipped};
}

std::shared_ptr<const Pixels> turnedPixels(const Pixels& pixels, QuarterTurn turn) {
  const int width = turn.transposed ? pixels.height : pixels.width;
  const int height = turn.transposed ? pixels.width : pixels.height;
  const auto made = newPixels(width, height);
  if (!made) return nullptr;
  made->pixels->opaque = pixels.opaque;
  // The words of the source between two neighbours of the result, and its first one.
  const qsizetype row = pixels.bytesPerLine / 4;
  const qsizetype across = (turn.transposed ? row : 1) * (turn.mirrored ? -1 : 1);
  const qsizetype down = (turn.transposed ? 1 : row) * (turn.flipped ? -1 : 1);
  const auto* first = reinterpret_cast<const quint32*>(pixels.bits) +
                      (turn.mirrored ? -across * (width - 1) : 0) +
                      (turn.flipped ? -down * (height - 1) : 0);
  constexpr int kTile = 32;  // pixels; a tile of both pictures fits into the fastest memory
  for (int top = 0; top < height; top += kTile) {
    const int bottom = std::min(height, top + kTile);
    for (int left = 0; left < width; left += kTile) {
      const int right = std::min(width, left + kTile);
      for (int y = top; y < bottom; ++y) {
        const quint32* from = first + y * down + left * across;
        quint32* to = made->words + qsizetype{y} * width + left;
        for (int x = left; x < right; ++x, from += across) *to++ = *from;
      }
    }
  }
  return made->pixels;
}

}  // namespace korvane
