// The places that an owner has moved controls to, kept per theme in "positons.txt": a line a
// control,
// "<name>@@#<left>[@@#<top>[@@#<index>]]" in units of the form.
#pragma once

#include "core/graphics.h"
#include "core/log.h"
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
  // line that names none is passed over; without a file nothing moves.
  void loadMovedControls();

 private:
  void place(const QString& line);

  Uses uses_;
};

}  // namespace korvane
