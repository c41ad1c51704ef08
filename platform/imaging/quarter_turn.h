// The eight ways in which a picture can stand, as EXIF counts them, and how they follow each other.
#pragma once

#include "platform/pixels.h"

namespace korvane {

// A transposition (rows become columns), then mirroring of what has become of it.
struct QuarterTurn {
  bool transposed = false;
  bool mirrored = false;  // left and right change places
  bool flipped = false;   // top and bottom change places

  static QuarterTurn toUpright(int orientation);  // of EXIF; none for what is not 2 to 8
  static QuarterTurn clockwise(int degrees);      // any multiple of 90

  QuarterTurn then(QuarterTurn next) const;
  bool isNone() const { return !transposed && !mirrored && !flipped; }
};

// Null when there is no memory for it.
std::shared_ptr<const Pixels> turnedPixels(const Pixels& pixels, QuarterTurn turn);

}  // namespace korvane
