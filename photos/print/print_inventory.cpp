#include "photos/print/cls_print_api.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr Kind kButton = Kind::Button, kLabel = Kind::Label;

constexpr Look kTitle{.caption = "Print", .text = 44, .bold = true};
constexpr Look kSmall{.align = 0, .wraps = true};
constexpr Look kNumber{.text = 36, .align = 0, .bold = true};

constexpr InventoryRow kPrint[] = {
    {"lblTitle", -1, kLabel, {24, 12, 1232, 64}, TL, "Print", "", true, kTitle},
    {"gridPrinters", -1, Kind::Grid, {24, 88, 356, 464}, TL, "Printers"},
    {"gridPapers", -1, Kind::Grid, {396, 88, 396, 464}, TL, "Paper sizes"},
    {"picPreview", -1, Kind::PictureArea, {808, 88, 448, 464}, TL, "The page"},
    {"lblMeasures", -1, kLabel, {808, 560, 448, 88}, TL, "Measures", "", true, kSmall},
    {"lblCopiesTitle", -1, kLabel, {24, 564, 112, 80}, TL, "", "", true, {.caption = "Copies"}},
    {"cmdFewer",
     -1,
     kButton,
     {140, 564, 80, 80},
     TL,
     "Fewer copies",
     "",
     true,
     {.caption = "\u2212"}},
    {"lblCopies", -1, kLabel, {220, 564, 80, 80}, TL, "Copies", "", true, kNumber},
    {"cmdMore", -1, kButton, {300, 564, 80, 80}, TL, "More copies", "", true, {.caption = "+"}},
    {"cmdTurn", -1, kButton, {396, 564, 396, 80}, TL, "How the paper lies"},
    {"lblStatus", -1, kLabel, {24, 660, 624, 96}, TL, "Status", "", true, {.wraps = true}},
    {"cmdCancel",
     -1,
     kButton,
     {664, 664, 288, 88},
     TL,
     "Cancel",
     "",
     true,
     {.caption = "Cancel", .cancels = true}},
    {"cmdok",
     -1,
     kButton,
     {968, 664, 288, 88},
     TL,
     "Print",
     "",
     true,
     {.caption = "Print", .accent = true}},
};

}  // namespace

std::span<const InventoryRow> printInventory() {
  return kPrint;
}

}  // namespace korvane
