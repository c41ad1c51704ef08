#include "core/dressing.h"

namespace korvane {
namespace {

constexpr int kRowHeight = 38, kFontSize = 13;  // 76 and 31 form units

Colours ink(const Palette& palette, QStringView element) {
  Colours colours;
  colours.fore = palette.fore(element);
  colours.selected = palette.back(u"Accent");
  return colours;
}

Colours coloursOf(Kind kind, const QStringList& elements, const Palette& palette) {
  if (kind == Kind::Label || kind == Kind::Check) return ink(palette, elements[0]);
  if (kind == Kind::Slider) return palette.slider(elements[0]);
  if (kind == Kind::Grid)
    return palette.grid(elements.value(0), elements.value(1), elements.value(2));
  return palette.button(elements[0]);
}

}  // namespace

QStringList colourElements(Kind kind, const Look& look, QStringView ground) {
  const QStringList own = QString::fromLatin1(look.colours).split(u'/', Qt::SkipEmptyParts);
  const auto orElse = [&own](const QStringList& standard) {
    return own.isEmpty() ? standard : own;
  };
  switch (kind) {
    case Kind::Button:
      return orElse({look.accent ? u"Accent"_s : u"Button"_s});
    case Kind::Label:
    case Kind::Check:
      return orElse({ground.toString()});
    case Kind::Text:
      return orElse({u"MUSICGRID"_s});
    case Kind::Frame:
      return orElse({u"Surface"_s});
    case Kind::Slider:
    case Kind::Progress:
      return orElse({u"DurationSlider"_s});
    case Kind::Sheet:
    case Kind::Grid:
      return orElse({u"MUSICGRID"_s, u"MUSICGridSelected"_s, u"MUSICGridTopLine"_s});
    case Kind::Image:
    case Kind::Timer:
    case Kind::PictureArea:
    case Kind::Surface:
      return {};
  }
  Q_UNREACHABLE();
}

void dressControl(Control& control, const Palette& palette, QStringView ground) {
  const QStringList elements = colourElements(control.kind, control.look, ground);
  if (!elements.isEmpty()) control.colours = coloursOf(control.kind, elements, palette);
}

// Many controls wear the same: each is looked up once.
void dressColours(Form& form, const Palette& palette, QStringView ground) {
  QHash<std::pair<int, QStringList>, Colours> known;
  form.colours = palette.button(ground);
  for (const auto& control : form.controls()) {
    const QStringList elements = colourElements(control->kind, control->look, ground);
    if (elements.isEmpty()) continue;
    const std::pair worn(static_cast<int>(control->kind), elements);
    const auto found = known.constFind(worn);
    control->colours = found != known.constEnd()
                           ? *found
                           : *known.insert(worn, coloursOf(control->kind, elements, palette));
  }
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
