// The tiles of the lights: a lamp as bright as its level, with its name and the level in percent.
#pragma once

#include "control/lights/lamps.h"
#include "core/form/control.h"
#include "core/palette.h"

namespace korvane {

class LampCells : public CellSource {
 public:
  // `lamps` outlives it. `plain` and `marked` tint the ground of a tile and of the chosen one.
  LampCells(const Lamps& lamps, Colour plain, Colour marked)
      : lamps_(lamps), plain_(plain), marked_(marked) {}
  int count() const override { return static_cast<int>(lamps_.all().size()); }
  QString caption(int cell) const override;
  std::optional<Picture> picture(int cell) const override;
  Colour back(int cell) const override { return cell == chosen ? marked_ : plain_; }

  int chosen = -1;  // the cell that the buttons act on

 private:
  const Lamps& lamps_;
  Colour plain_, marked_;
};

// "60 %", "off", or nothing while it is not known.
QString levelText(std::optional<int> level);
// The theme's picture of a lamp with that level.
QString lampPicture(std::optional<int> level);

}  // namespace korvane
