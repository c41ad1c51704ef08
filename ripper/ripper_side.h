// The ripper: discs become songs of the library.
#pragma once

#include "custom/custom_side.h"
#include "ripper/rip_mark.h"
#include "ripper/screens/ripper_form.h"

namespace korvane {

class RipperSide {
 public:
  RipperSide(Desk& desk, LibrarySide& library, ListenerSide& listener, PlaybackSide& playback,
             CustomSide& custom);

  RipRun run;
  RipperForm form;
  RipMark mark;

 private:
  bool mayEnd(Messages& messages) const;  // asks while a run is at work. Yields.
};

}  // namespace korvane
