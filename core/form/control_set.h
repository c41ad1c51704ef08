// Controls that are shown or hidden together, told by name: "cmdTop" for a control or a whole
// array, "cmdControls#5" for one member.
#pragma once

#include <initializer_list>

#include "core/form/form.h"

namespace korvane {

class ControlSet {
 public:
  // A name that the form does not have is a fault of the build and ends the program.
  ControlSet(Form& form, std::initializer_list<const char*> names);

  void show(bool on = true) const;
  void hide() const { show(false); }

 private:
  std::vector<Control*> controls_;
};

}  // namespace korvane
