// What a control or a cell shows as its picture.
#pragma once

#include <memory>

#include "platform/text.h"

namespace korvane {

// A themed picture by group and name, or the bytes of an image file. Of bytes the same object is
// the same picture: it is drawn once for each size.
struct Picture {
  QString group, name;
  std::shared_ptr<const QByteArray> bytes;
  bool operator==(const Picture&) const = default;
  bool empty() const { return name.isEmpty() && !bytes; }
};

}  // namespace korvane
