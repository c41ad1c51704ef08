// The inventory of frmFTP.
#pragma once

#include "core/form/inventory.h"

namespace korvane {

std::span<const InventoryRow> ftpInventory();

}  // namespace korvane
