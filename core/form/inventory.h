// What a form is made of: one row a control. The rows' order is the order of the controls, from the
// back of the screen to its front.
#pragma once

#include <span>

#include "core/form/control.h"

namespace korvane {

struct InventoryRow {
  const char* name;
  int index;  // of an array's member, else -1
  Kind kind;
  Rect rect;           // on the design surface, within the container
  unsigned anchors;    // of Anchor
  const char* spoken;  // for accessibility; "" for what is not spoken
  const char* container = "";
  bool visible = true;
  Look look = {};
};

std::span<const InventoryRow> mainInventory();  // frmMain

}  // namespace korvane
