// The ripper: discs become songs of the library.
#pragma once

#include "custom/custom_side.h"

namespace korvane {

class RipperSide {
 public:
  RipperSide(Desk& desk, LibrarySide& library, ListenerSide& listener, PlaybackSide& playback,
             CustomSide& custom);
};

}  // namespace korvane
