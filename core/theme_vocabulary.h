// The names that a theme draws, with the size each is shown at, and the colour keys it sets.
#pragma once

#include <span>

namespace korvane {

struct ThemePicture {
  const char *group, *name;
  int width, height;  // form units
};

std::span<const ThemePicture> themePictures();

// Elements of COLORS.INI; each has a key with "BACK" added, and one with "FOR" for the text on it.
std::span<const char* const> themeColours();

}  // namespace korvane
