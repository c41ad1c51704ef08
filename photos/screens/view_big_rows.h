// The controls of frmViewBig: the picture, its zoom below, and on the right a button for all that a
// finger on the picture does too.
#pragma once

#include "core/form/inventory.h"

namespace korvane {

std::span<const InventoryRow> viewBigInventory();

}  // namespace korvane
