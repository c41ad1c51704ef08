// What a connection tells whoever supervises it.
#pragma once

#include "platform/text.h"

namespace korvane {

class LinkNews {
 public:
  virtual ~LinkNews() = default;
  virtual void linkTries() = 0;
  virtual void linkStands() = 0;
  virtual void linkAsks() = 0;   // something was sent that the peer answers
  virtual void linkHears() = 0;  // bytes have come
  virtual void linkEnds(const QString& why) = 0;
  virtual void linkChanged() = 0;  // whether it is to be connected
};

}  // namespace korvane
