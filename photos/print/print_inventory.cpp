#include "photos/print/cls_print_api.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top, TLB = TL | Bottom, TLR = TL | Right, All = TLR | Bottom;
constexpr unsigned BL = Left | Bottom, BR = Right | Bottom, BLR = BL | Right;

constexpr InventoryRow row(const char* name, Kind kind, Rect rect, unsigned anchors,
                           const char* spoken, Look look = {}) {
  return {name, -1, kind, rect, anchors, spoken, "", true, look};
}
constexpr InventoryRow button(const char* name, Rect rect, unsigned anchors, const char* spoken,
                              Look look = {}) {
  return row(name, Kind::Button, rect, anchors, spoken, look);
}
constexpr InventoryRow label(const char* name, Rect rect, unsigned anchors, const char* spoken,
                             Look look) {
  return row(name, Kind::Label, rect, anchors, spoken, look);
}

constexpr InventoryRow kPrint[] = {
    label("lblTitle", {24, 12, 1232, 64}, TLR, "Print",
          {.caption = "Print", .text = 44, .bold = true}),
    row("gridPrinters", Kind::Grid, {24, 88, 300, 464}, TLB, "Printers"),
    row("gridPapers", Kind::Grid, {340, 88, 508, 464}, TLB, "Paper sizes"),
    row("picPreview", Kind::PictureArea, {864, 88, 392, 464}, All, "The page"),
    label("lblMeasures", {864, 560, 392, 88}, BLR, "Measures", {.align = 0, .wraps = true}),
    label("lblCopiesTitle", {24, 564, 92, 80}, BL, "", {.caption = "Copies"}),
    button("cmdFewer", {116, 564, 72, 80}, BL, "Fewer copies", {.caption = "\u2212"}),
    label("lblCopies", {188, 564, 64, 80}, BL, "Copies", {.text = 36, .align = 0, .bold = true}),
    button("cmdMore", {252, 564, 72, 80}, BL, "More copies", {.caption = "+"}),
    button("cmdTurn", {340, 564, 508, 80}, BL, "How the paper lies"),
    label("lblStatus", {24, 660, 624, 96}, BLR, "Status", {.wraps = true}),
    button("cmdCancel", {664, 664, 288, 88}, BR, "Cancel", {.caption = "Cancel", .cancels = true}),
    button("cmdok", {968, 664, 288, 88}, BR, "Print", {.caption = "Print", .accent = true}),
};

}  // namespace

std::span<const InventoryRow> printInventory() {
  return kPrint;
}

}  // namespace korvane
