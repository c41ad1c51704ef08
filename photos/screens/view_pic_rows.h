// The controls of frmViewPic: on the left where the pictures are and how they are shown and
// printed, on the right the sheet, between them the bar that a finger moves.
#pragma once

#include "core/form/inventory.h"

namespace korvane {

std::span<const InventoryRow> viewPicInventory();

}  // namespace korvane
