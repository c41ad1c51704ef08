// Colours of the theme by element: `<element>BACK` and `<element>FOR` of COLORS.INI.
#pragma once

#include "core/form/control.h"
#include "core/settings.h"

namespace korvane {

class Palette {
 public:
  explicit Palette(const Settings& settings) : settings_(settings) {}

  Colour back(QStringView element) const;  // black when absent
  // The text colour for the element: its FOR key, else whichever of the theme's light or dark text
  // reads better on its background.
  Colour fore(QStringView element) const;
  bool has(QStringView key) const;

  // The three colours of a list, from the elements of its rows, its selected row and its header.
  Colours grid(QStringView rows, QStringView selected, QStringView header) const;
  Colours slider(QStringView back) const;
  Colours button(QStringView element) const;  // and of a pressed one

 private:
  const Settings& settings_;
};

// WCAG 2.1 contrast ratio of two colours, 1 to 21.
double contrast(Colour a, Colour b);

}  // namespace korvane
