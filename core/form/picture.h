// What a control or a cell shows as its picture.
#pragma once

#include <memory>

#include "platform/pixels.h"

namespace korvane {

// A themed picture by group and name, the bytes of an image file, or a decoded one. Of bytes and
// pixels the same object is the same picture: it is drawn once for each size.
struct Picture {
  QString group, name;
  std::shared_ptr<const QByteArray> bytes{};
  std::shared_ptr<const Pixels> pixels{};
  bool operator==(const Picture&) const = default;
  bool empty() const { return name.isEmpty() && !bytes && !pixels; }
};

}  // namespace korvane
