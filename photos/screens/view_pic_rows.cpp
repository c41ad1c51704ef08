#include "photos/screens/view_pic_rows.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top, BL = Left | Bottom, TR = Right | Top;
constexpr unsigned TLR = TL | Right, BLR = BL | Right, All = TL | TR | BL;
constexpr const char *kLeft = "picControl", *kRight = "picFrame";

constexpr InventoryRow row(const char* container, const char* name, int index, Kind kind, Rect rect,
                           unsigned anchors, const char* spoken, Look look = {}) {
  return {name, index, kind, rect, anchors, spoken, container, true, look};
}
constexpr InventoryRow hidden(InventoryRow made) {
  made.visible = false;
  return made;
}
// One of several in a line of a frame of 384 units; `line` counts from 0.
constexpr InventoryRow choice(const char* frame, const char* name, int index, int left, int width,
                              int line, const char* caption) {
  return row(frame, name, index, Kind::Button, {left, 52 + line * 80, width, 72}, TL, caption,
             {.caption = caption, .text = 22});
}
// A large row of the menu, in two columns.
constexpr InventoryRow entry(int place, const char* name, const char* caption) {
  return row("mnuOptions", name, -1, Kind::Button,
             {12 + place % 2 * 350, 12 + place / 2 * 100, 342, 92}, TL, caption,
             {.caption = caption, .text = 26});
}

constexpr InventoryRow kRows[] = {
    row("", kLeft, -1, Kind::Frame, {0, 0, 408, 768}, Left | Top | Bottom, "Folders"),
    row("", kRight, -1, Kind::Frame, {448, 0, 832, 768}, All, "Pictures"),
    row("", "picSplit", -1, Kind::Frame, {408, 0, 40, 768}, Left | Top | Bottom,
        "Move to make one side wider", {.colours = "Button"}),

    row(kLeft, "Drive1", -1, Kind::Grid, {12, 12, 384, 152}, TLR, "Volumes"),
    row(kLeft, "Dir1", -1, Kind::Grid, {12, 172, 384, 228}, All, "Folders"),
    hidden(row(kLeft, "File1", -1, Kind::Grid, {12, 172, 384, 228}, All, "Files")),
    row(kLeft, "fraThumbs", -1, Kind::Frame, {12, 408, 384, 132}, BL, "Thumbnails",
        {.caption = "Thumbnails"}),
    choice("fraThumbs", "optThumbs", 0, 8, 140, 0, "Automatic"),
    choice("fraThumbs", "optThumbs", 1, 156, 116, 0, "Force creation"),
    choice("fraThumbs", "optThumbs", 2, 280, 96, 0, "Do not create"),
    row(kLeft, "fraPrint", -1, Kind::Frame, {12, 548, 384, 212}, BL, "Print", {.caption = "Print"}),
    choice("fraPrint", "optSize", 0, 8, 180, 0, "4 x 6 inch"),
    choice("fraPrint", "optSize", 1, 196, 180, 0, "5 x 7 inch"),
    choice("fraPrint", "optPrint", 0, 8, 117, 1, "Crop to fit"),
    choice("fraPrint", "optPrint", 1, 133, 118, 1, "Size to fit"),
    choice("fraPrint", "optPrint", 2, 259, 117, 1, "Keep aspect"),

    row(kRight, "lblPhotoFolder", -1, Kind::Label, {12, 12, 672, 72}, TLR, "Picture folder",
        {.caption = "Not set up", .text = 26, .wraps = true}),
    row(kRight, "imgExit", -1, Kind::Button, {696, 12, 124, 72}, TR, "Done",
        {.caption = "Done", .accent = true, .cancels = true}),
    row(kRight, "picSlide", -1, Kind::Sheet, {12, 96, 716, 508}, All, "Pictures",
        {.caption = "No pictures in this folder."}),
    row(kRight, "vsbSlide", -1, Kind::Slider, {740, 96, 80, 508}, TR | Bottom,
        "Scroll the pictures", {.vertical = true}),
    row(kRight, "cmdOptions", -1, Kind::Button, {12, 616, 220, 76}, BL, "Options",
        {.caption = "Options"}),
    row(kRight, "cmdStop", -1, Kind::Button, {244, 616, 180, 76}, BL, "Stop", {.caption = "Stop"}),
    row(kRight, "lblCount", -1, Kind::Label, {444, 616, 376, 76}, BLR, "Number of pictures",
        {.caption = "Images: 0", .text = 30}),
    row(kRight, "sbrMain", -1, Kind::Label, {12, 700, 240, 56}, BL, "Status", {.text = 26}),
    hidden(row(kRight, "picProgress", -1, Kind::Progress, {264, 700, 556, 56}, BLR, "Progress")),

    hidden(row(kRight, "fraTakeBack", -1, Kind::Frame, {12, 508, 716, 96}, BLR, "Deleted")),
    row("fraTakeBack", "lblTakeBack", -1, Kind::Label, {20, 12, 460, 72}, TLR, "Deleted",
        {.text = 28}),
    row("fraTakeBack", "cmdTakeBack", -1, Kind::Button, {496, 12, 208, 72}, TR, "Take back",
        {.caption = "Take back"}),
    hidden(row(kRight, "mnuOptions", -1, Kind::Frame, {12, 188, 716, 416}, BL, "Options")),
    entry(0, "mnuGroup", "Import pictures to new folder"),
    entry(1, "mnuMove", "Move pictures from one folder to another"),
    entry(2, "mnuRotate", "Rotate 90"),
    entry(3, "mnuRotate180", "Rotate 180"),
    entry(4, "mnuPrint", "Print"),
    entry(5, "mnuDeleted", "Delete"),
    entry(6, "mnuSelect", "Select all"),
    entry(7, "mnuUnSelect", "Unselect all"),
    {"tmrTakeBack", -1, Kind::Timer, {}, TL, ""},
};

}  // namespace

std::span<const InventoryRow> viewPicInventory() {
  return kRows;
}

}  // namespace korvane
