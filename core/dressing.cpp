#include "core/dressing.h"

namespace korvane {
namespace {

constexpr int kRowHeight = 38, kFontSize = 13;  // 76 and 31 form units

Colours ink(const Palette& palette) {
  Colours colours;
  colours.fore = palette.fore(u"Surface");
  return colours;
}

void dressControl(Control& control, const Palette& palette) {
  switch (control.kind) {
    case Kind::Button:
      control.colours =
          palette.button(dynamic_cast<Button&>(control).accent ? u"Accent" : u"Button");
      break;
    case Kind::Label:
    case Kind::Check:
      control.colours = ink(palette);
      break;
    case Kind::Text:
      control.colours = palette.button(u"MUSICGRID");
      break;
    case Kind::Frame:
      control.colours = palette.button(u"Surface");
      break;
    case Kind::Slider:
      control.colours = palette.slider(u"DurationSlider");
      break;
    case Kind::Grid: {
      auto& grid = dynamic_cast<Grid&>(control);
      grid.colours = palette.grid(u"MUSICGRID", u"MUSICGridSelected", u"MUSICGridTopLine");
      grid.rowHeight = kRowHeight;
      grid.fontSize = kFontSize;
      break;
    }
    case Kind::Image:
    case Kind::Timer:
    case Kind::PictureArea:
    case Kind::Surface:
      break;
  }
}

}  // namespace

void dress(Form& form, const Palette& palette) {
  form.colours = palette.button(u"Surface");
  for (const auto& control : form.controls()) dressControl(*control, palette);
}

void title(Label& label, const QString& caption) {
  constexpr int kTitle = 44;
  label.caption = caption;
  label.fontUnits = kTitle;
  label.bold = true;
}

}  // namespace korvane
