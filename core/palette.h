// Colours of the theme by element: `<element>BACK` and `<element>FOR` of COLORS.INI.
#pragma once

#include "core/form/control.h"
#include "core/settings.h"

namespace korvane {

// Reads the settings at each call, so another theme counts at once.
class Palette {
 public:
  explicit Palette(const Settings& settings) : settings_(settings) {}

  Colour back(QStringView element) const;  // black when absent
  // The text colour for the element: its FOR key, else whichever of the theme's light or dark text
  // reads better on its background.
  Colour fore(QStringView element) const;
  bool has(QStringView key) const;  // the whole key, with its BACK or FOR

  // The three colours of a list, from the elements of its rows, its selected row and its header.
  Colours grid(QStringView rows, QStringView selected, QStringView header) const;
  // The ground of that element, with the colours that all sliders share.
  Colours slider(QStringView element) const;
  Colours button(QStringView element) const;  // and of a pressed one

 private:
  const Settings& settings_;
};

// WCAG 2.1 contrast ratio of two colours, 1 to 21.
double contrast(Colour a, Colour b);

}  // namespace korvane
