// Pixels while they are being made, and their sizes.
#pragma once

#include <optional>

#include "platform/imaging.h"

namespace korvane {

// Pixels that may still be written: `pixels` shares the bytes, which begin at words[0] and have no
// gap between two rows.
struct PixelBuffer {
  std::shared_ptr<Pixels> pixels;
  quint32* words = nullptr;
};

// Not filled. Nothing when there is no memory for it or it would be over Imaging::kMostBytes.
std::optional<PixelBuffer> newPixels(int width, int height);

// Whether a picture of that many pixels would be over Imaging::kMostBytes, and the sentence for it.
bool tooLarge(qint64 width, qint64 height);
QString tooLargeText(qint64 width, qint64 height);

// How large a picture of width x height becomes for `reading`, upright in both.
FittedSize askedSize(int width, int height, const Imaging::Reading& reading);

}  // namespace korvane
