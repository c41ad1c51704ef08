// The colours and sizes that the controls of a modal form have in common.
#pragma once

#include "core/form/form.h"
#include "core/palette.h"

namespace korvane {

// Colours of the theme for the form and each of its controls by kind. Labels get ink only. Lists
// get rows for a finger.
void dress(Form& form, const Palette& palette);

// The heading of a form.
void title(Label& label, const QString& caption);

}  // namespace korvane
