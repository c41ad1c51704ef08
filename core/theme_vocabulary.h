// The names that a theme draws, with the size each is shown at, and the colour elements it sets.
// They follow from the inventories of the core's forms: a picture or a colour that a row wears is
// in the vocabulary by that. What no row names, since it is shown later or by another folder's
// form, stands in the tables of the .cpp.
#pragma once

#include <vector>

#include "core/form/inventory.h"

namespace korvane {

struct ThemePicture {
  QString group, name;
  int width, height;  // form units; the largest that the picture is shown at
};

// The picture of a control's other state: "On" and "Off" are partners, and a name and the same with
// "b" appended.
QString otherState(const QString& name);

// Each picture once, in any case of letters.
std::vector<ThemePicture> themePictures();

// Elements of COLORS.INI; each has a key with "BACK" added, and one with "FOR" for the text on it.
QStringList themeColours();

}  // namespace korvane
