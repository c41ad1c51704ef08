// The colours of the theme on the controls of a form, each as its inventory row says or as its kind
// wears them.
#pragma once

#include "core/form/form.h"
#include "core/palette.h"

namespace korvane {

// `ground` is the element of the form itself and of the text on it. Labels get ink only, on top of
// whatever they lie on.
void dressColours(Form& form, const Palette& palette, QStringView ground);

// A modal form: the same on the ground of the setup screens, and its lists have rows for a finger.
void dress(Form& form, const Palette& palette);

// The heading of a form.
void title(Label& label, const QString& caption);

}  // namespace korvane
