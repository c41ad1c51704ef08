// The controls of frmRipper.
#pragma once

#include "core/form/inventory.h"

namespace korvane {

std::span<const InventoryRow> ripperInventory();

// Of the list of tracks: alone, above the keyboard, and above the keyboard with a title being
// typed.
inline constexpr Rect kTracks{12, 92, 860, 616}, kTracksAboveKeys{12, 92, 860, 300},
    kTracksBelowTitle{12, 176, 860, 216};

}  // namespace korvane
