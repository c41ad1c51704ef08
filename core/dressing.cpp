#include "core/dressing.h"

namespace korvane {
namespace {

constexpr int kRowHeight = 38, kFontSize = 13;  // 76 and 31 form units
constexpr const char* kGrid = "MUSICGRID/MUSICGridSelected/MUSICGridTopLine";

Colours ink(const Palette& palette, QStringView element) {
  Colours colours;
  colours.fore = palette.fore(element);
  colours.selected = palette.back(u"Accent");
  return colours;
}

Colours coloursOf(const Control& control, const Palette& palette, QStringView ground) {
  const QString own = QString::fromLatin1(control.look.colours);
  const auto element = [&own](QStringView standard) {
    return own.isEmpty() ? standard.toString() : own;
  };
  switch (control.kind) {
    case Kind::Button:
      return palette.button(element(control.look.accent ? u"Accent" : u"Button"));
    case Kind::Label:
    case Kind::Check:
      return ink(palette, element(ground));
    case Kind::Text:
      return palette.button(element(u"MUSICGRID"));
    case Kind::Frame:
      return palette.button(element(u"Surface"));
    case Kind::Slider:
      return palette.slider(element(u"DurationSlider"));
    case Kind::Grid: {
      const QStringList three = element(QString::fromLatin1(kGrid)).split(u'/');
      return palette.grid(three.value(0), three.value(1), three.value(2));
    }
    case Kind::Image:
    case Kind::Timer:
    case Kind::PictureArea:
    case Kind::Surface:
      break;
  }
  return control.colours();
}

}  // namespace

void dressColours(Form& form, const Palette& palette, QStringView ground) {
  form.colours = palette.button(ground);
  for (const auto& control : form.controls())
    control->colours = coloursOf(*control, palette, ground);
}

void dress(Form& form, const Palette& palette) {
  dressColours(form, palette, u"Surface");
  for (const auto& control : form.controls()) {
    auto* grid = dynamic_cast<Grid*>(control.get());
    if (!grid) continue;
    grid->rowHeight = kRowHeight;
    grid->fontSize = kFontSize;
  }
}

void title(Label& label, const QString& caption) {
  constexpr int kTitle = 44;
  label.caption = caption;
  label.fontUnits = kTitle;
  label.bold = true;
}

}  // namespace korvane
