#include "photos/screens/view_big_rows.h"

namespace korvane {
namespace {

constexpr unsigned TR = Right | Top, BR = Right | Bottom;
constexpr unsigned BLR = Left | Right | Bottom, All = Left | TR | Bottom;

constexpr InventoryRow row(const char* container, const char* name, Kind kind, Rect rect,
                           unsigned anchors, const char* spoken, Look look = {}) {
  return {name, -1, kind, rect, anchors, spoken, container, true, look};
}
constexpr InventoryRow hidden(InventoryRow made) {
  made.visible = false;
  return made;
}
constexpr InventoryRow label(const char* name, Rect rect, unsigned anchors, const char* spoken) {
  return row("", name, Kind::Label, rect, anchors, spoken, {.text = 28, .align = 0});
}
// In two columns on the right.
constexpr InventoryRow tool(int place, const char* name, const char* caption, const char* spoken,
                            Look look = {}) {
  look.caption = caption;
  look.text = 26;
  return row("", name, Kind::Button, {972 + place % 2 * 152, 12 + place / 2 * 80, 144, 72}, TR,
             spoken, look);
}
constexpr InventoryRow memberOf(InventoryRow made, int index) {
  made.index = index;
  return made;
}

constexpr InventoryRow kRows[] = {
    row("", "frame", Kind::Frame, {12, 12, 948, 664}, All, "Picture"),
    row("frame", "picBig", Kind::PictureArea, {0, 0, 948, 664}, All, "Picture"),
    hidden(row("frame", "lblMessage", Kind::Label, {40, 232, 868, 200}, All, "Message",
               {.text = 32, .align = 0, .wraps = true})),
    row("", "scrollZoom", Kind::Slider, {12, 684, 560, 72}, Left | Bottom, "Zoom"),
    label("lblName", {588, 684, 372, 72}, BLR, "Name"),
    hidden(row("", "picProgress", Kind::Progress, {588, 692, 372, 56}, BLR, "Progress")),
    tool(0, "butPrevious", "Previous", "Previous picture"),
    tool(1, "butNext", "Next", "Next picture"),
    tool(2, "butZoomMinus", "\u2212", "Smaller"),
    tool(3, "butZoomPlus", "+", "Larger"),
    tool(4, "butZoom100", "100 %", "Pixel for pixel"),
    tool(5, "butZoomFit", "Fit", "Whole picture"),
    tool(6, "butStartZoomPlus", "Tap +", "A tap makes it larger"),
    tool(7, "butStartZoomMinus", "Tap \u2212", "A tap makes it smaller"),
    tool(8, "butStartZoomWindow", "Window", "Zoom into a window"),
    tool(9, "butStartMove", "Move", "Move the picture"),
    tool(10, "butStartMagnificationWindow", "Magnifier", "Magnifier"),
    tool(11, "cmdBright", "Brighten", "Brighten"),
    tool(12, "butRotate", "Rotate", "Rotate"),
    memberOf(tool(13, "optSize", "Max", "Print as large as can be"), 0),
    tool(14, "butPrint", "Print", "Print"),
    tool(15, "imgExit", "Done", "Done", {.accent = true, .cancels = true}),
    label("tbZoomFactor", {972, 664, 296, 44}, BR, "Zoom factor"),
    label("lblSize", {972, 708, 296, 44}, BR, "Size"),
};

}  // namespace

std::span<const InventoryRow> viewBigInventory() {
  return kRows;
}

}  // namespace korvane
