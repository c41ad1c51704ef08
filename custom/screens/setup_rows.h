// Inventory rows of the setup screens, where a control is spoken of by what stands on it.
#pragma once

#include "core/form/inventory.h"

namespace korvane {

// `text` is the caption, but for texts and lists, which have none: of those it is spoken alone.
constexpr InventoryRow setupRow(const char* name, int index, Kind kind, Rect rect, const char* text,
                                Look look = {}) {
  if (kind != Kind::Text && kind != Kind::Grid) look.caption = text;
  return {name, index, kind, rect, Left | Top, text, "", true, look};
}

// The heading of a form, "lblTitle".
constexpr InventoryRow titleRow(const char* text, int units = 44) {
  return setupRow("lblTitle", -1, Kind::Label, {24, 16, 860, 64}, text,
                  {.text = units, .bold = true});
}

}  // namespace korvane
