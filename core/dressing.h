// The colours of the theme on the controls of a form, each as its inventory row says or as its kind
// wears them.
#pragma once

#include "core/form/form.h"
#include "core/palette.h"

namespace korvane {

// The elements of COLORS.INI that a control of that kind and look wears: one, or of a list three.
// None for what has no colours. `ground` is that of the form, which text on it wears.
QStringList colourElements(Kind kind, const Look& look, QStringView ground);

// One control, as its row says: a list at a fill, so that a colour which its owner has changed
// shows.
void dressControl(Control& control, const Palette& palette, QStringView ground = u"Status");

// A whole form. `ground` is the element of the form itself and of the text on it. Labels get ink
// only, on top of whatever they lie on.
void dressColours(Form& form, const Palette& palette, QStringView ground);

// A modal form: the same on the ground of the setup screens, and its lists have rows for a finger.
void dress(Form& form, const Palette& palette);

// The heading of a form.
void title(Label& label, const QString& caption);

}  // namespace korvane
