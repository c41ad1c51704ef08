// Drawing a picture of the theme, or a decoded one, at the exact size of its place. Any thread may.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <memory>

#include "platform/pixels.h"

namespace korvane {

enum class Fit {
  Inside,   // whole and undistorted, centred by the one who paints it
  Cover,    // fills the size, undistorted, what stands over cut off
  Stretch,  // fills the size
};

struct PictureSource {
  std::shared_ptr<const void> owner;  // keeps the bytes, and with them a key, alive
  QByteArray bytes;
  bool svg = false;
  QImage image{};  // already decoded: of no bytes
};

// An image of the same bits, which it keeps alive. Null for pixels of no size.
QImage imageOf(const std::shared_ptr<const Pixels>& pixels);

// The size at which a picture of `natural` size is shown in `room`. One that was made for the room
// stays as it is, although its maker may have rounded otherwise.
QSize sizeIn(QSize natural, QSize room, Fit fit);

// A picture at a size.
struct PictureKey {
  const void* source;
  int width, height;
  Fit fit;
  bool operator==(const PictureKey&) const = default;
  friend size_t qHash(const PictureKey& key, size_t seed) {
    return qHashMulti(seed, key.source, key.width, key.height, static_cast<int>(key.fit));
  }
};

// At `size` device pixels; for Fit::Inside at the largest size inside it. Null for an empty or
// broken picture.
QImage drawPicture(const PictureSource& source, QSize size, Fit fit);

}  // namespace korvane
