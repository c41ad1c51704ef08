// The elements of the interface that have a colour, page by page as frmColorPick shows them.
#pragma once

#include <span>

namespace korvane {

// The name is that of the keys <name>BACK and <name>FOR of COLORS.INI.
struct ColourElement {
  const char *name, *label;
};

struct ColourPage {
  const char* caption;
  std::span<const ColourElement> elements;
};

std::span<const ColourPage> colourPages();

}  // namespace korvane
