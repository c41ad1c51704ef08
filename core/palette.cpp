#include "core/palette.h"

namespace korvane {
namespace {

constexpr Colour kLight = 0xF7F2EE, kDark = 0x1C1410;  // 0x00BBGGRR

double channel(Colour colour, int shift) {
  const double c = ((colour >> shift) & 0xFF) / 255.0;
  return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminance(Colour colour) {
  return 0.2126 * channel(colour, 0) + 0.7152 * channel(colour, 8) + 0.0722 * channel(colour, 16);
}

Colour colourOf(const QString& text) {
  return static_cast<Colour>(std::clamp(toInteger(val(text)), 0, 0xFFFFFF));
}

}  // namespace

double contrast(Colour a, Colour b) {
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

bool Palette::has(QStringView name) const {
  return settings_.readSetting(u"COLORS", name) != "NO"_L1;
}

Colour Palette::back(QStringView element) const {
  return colourOf(settings_.readSetting(u"COLORS", element.toString() + u"BACK"_s));
}

Colour Palette::fore(QStringView element) const {
  const QString stored = settings_.readSetting(u"COLORS", element.toString() + u"FOR"_s);
  if (stored != "NO"_L1) return colourOf(stored);
  const Colour ground = back(element);
  return contrast(kLight, ground) >= contrast(kDark, ground) ? kLight : kDark;
}

Colours Palette::grid(QStringView rows, QStringView selected, QStringView header) const {
  Colours colours;
  colours.back = back(rows);
  colours.fore = fore(rows);
  colours.selected = back(selected);
  colours.selectedFore = fore(selected);
  colours.header = back(header);
  return colours;
}

Colours Palette::slider(QStringView element) const {
  Colours colours;
  colours.back = back(element);
  colours.on = back(u"DurationSliderON");
  colours.off = back(u"DurationSliderOFF");
  colours.knob = back(u"DurationSliderKNOB");
  return colours;
}

Colours Palette::button(QStringView element) const {
  Colours colours;
  colours.back = back(element);
  colours.fore = fore(element);
  colours.selected = back(u"ButtonPressed");
  colours.selectedFore = fore(u"ButtonPressed");
  return colours;
}

}  // namespace korvane
