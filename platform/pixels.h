// A decoded picture in memory. Of no thread: whoever holds it may read it, and nobody writes it.
#pragma once

#include <memory>

#include "platform/text.h"

namespace korvane {

struct Pixels {
  int width = 0, height = 0;    // pixels, upright
  qsizetype bytesPerLine = 0;   // of a row; rows go from the top
  const uchar* bits = nullptr;  // a pixel is a 32-bit word 0xAARRGGBB, its colours premultiplied
  bool opaque = true;           // all its alphas are 0xff
  std::shared_ptr<const void> owner;  // keeps the bits alive
};

}  // namespace korvane
