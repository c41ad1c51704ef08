// What a connection tells whoever supervises it.
#pragma once

#include "platform/text.h"

namespace korvane {

// Heard in the turn in which it happens, also from inside a call of the link; what hears may try
// the link again.
class LinkNews {
 public:
  virtual ~LinkNews() = default;
  virtual void linkTries() = 0;   // a connection is being made
  virtual void linkStands() = 0;  // it is made; whether the peer answers is not known
  virtual void linkAsks() = 0;    // something was sent that the peer answers
  virtual void linkHears() = 0;   // a whole answer has come
  // It is gone, or was not made; `why` is for the user to read.
  virtual void linkEnds(const QString& why) = 0;
  virtual void linkChanged() = 0;  // whether there is to be a link
};

}  // namespace korvane
