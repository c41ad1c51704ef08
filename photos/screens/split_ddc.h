// cSplitDDC: the upright bar between two parts of a form. A finger drags it sideways; where it lets
// go the parts take the room on its sides, and what lies in them follows by its anchors.
#pragma once

#include "core/form/form.h"

namespace korvane {

class cSplitDDC {
 public:
  struct Parts {
    Form& form;
    Control& SplitObject;  // the bar; as high as what it lies in, so it only moves sideways
    Control& left;
    Control& right;
    int Border = 32;  // form units that the bar stays away from the left and the right edge
  };
  explicit cSplitDDC(Parts parts);

  void SplitterFormMouseUp();  // the bar has been let go

 private:
  void follow(const Control& part, int left, int width);

  Parts parts_;
};

}  // namespace korvane
