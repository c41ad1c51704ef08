// The places that an owner has moved controls to, kept per theme in "positons.txt": a line a
// control, "<name>@@#<left>[@@#<top>[@@#<index>]]". Left and top are units of the design surface,
// in the control's container; on a surface of another shape the control's anchors say what follows.
#pragma once

#include "core/graphics.h"
#include "core/main_form.h"

namespace korvane {

class MovedControls {
 public:
  struct Uses {
    MainForm& main;
    const Graphics& graphics;
    const FileSystem& files;
  };
  explicit MovedControls(Uses uses) : uses_(uses) {}

  // Puts each control of the active theme's file in its place, but for those whose Tag is "NO". A
  // line that names none is passed over; without a file nothing moves. May be repeated.
  void loadMovedControls();

 private:
  void place(const QString& line);

  Uses uses_;
};

}  // namespace korvane
