// --check-theme: what a theme lacks, and what in it is too small or too faint.
#pragma once

#include "core/graphics.h"
#include "core/palette.h"

namespace korvane {

// A line for each fault, empty for none: a picture that is missing, broken, or a bitmap smaller
// than it is shown; a colour key that is missing; text under 4.5:1 on its ground.
QStringList themeFaults(Graphics& graphics, const Palette& palette);

}  // namespace korvane
