// The tracks stand on the left with artist and album above them; on the right what is ripped from
// where to where, in whose place a run shows how far it is.
#include "ripper/screens/ripper_rows.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top, TR = Right | Top, BR = Right | Bottom;
constexpr unsigned TLR = TL | Right, BLR = Left | BR, All = TLR | Bottom;
constexpr Rect kParked{-500, 240, 16, 16};  // a keyboard lays its keys out itself

constexpr InventoryRow row(const char* name, Kind kind, Rect rect, unsigned anchors,
                           const char* spoken, Look look = {}) {
  return {name, -1, kind, rect, anchors, spoken, "", true, look};
}
constexpr InventoryRow hidden(InventoryRow made) {
  made.visible = false;
  return made;
}
constexpr InventoryRow in(const char* container, InventoryRow made) {
  made.container = container;
  return made;
}
constexpr InventoryRow key(const char* name, int index, Kind kind, Look look = {}) {
  return {name, index, kind, kParked, TL, "", "KeyBoard", false, look};
}

constexpr InventoryRow kRows[] = {
    row("lblArtist", Kind::Text, {12, 8, 424, 76}, TLR, "Artist"),
    row("lblAlbum", Kind::Text, {444, 8, 428, 76}, TR, "Album"),
    hidden(row("txtTitle", Kind::Text, {12, 92, 860, 76}, TLR, "Title of the track")),
    row("ss", Kind::Grid, kTracks, All, "Tracks", {.caption = "Put an audio CD into the drive."}),
    row("StatusBar", Kind::Label, {12, 716, 860, 44}, BLR, "Status", {.text = 28}),

    row("BtnFrom", Kind::Label, {884, 8, 180, 40}, TR, "", {.caption = "Drive", .text = 26}),
    row("lblID", Kind::Label, {1072, 8, 196, 40}, TR, "Disc identifier", {.text = 24, .align = 1}),
    row("DriveCombo", Kind::Grid, {884, 52, 384, 152}, TR, "Drives", {.caption = "No CD drive."}),
    row("cmdSelectAll", Kind::Button, {884, 212, 188, 76}, TR, "Rip all tracks",
        {.caption = "All"}),
    row("cmdDeselect", Kind::Button, {1080, 212, 188, 76}, TR, "Rip no track", {.caption = "None"}),
    row("txtFilename", Kind::Text, {884, 296, 384, 76}, TR, "Folder of ripped songs"),
    row("cmdFilename", Kind::Button, {884, 380, 384, 76}, TR, "Choose the folder",
        {.caption = "Folder"}),
    row("lblFreeSpace", Kind::Label, {884, 560, 384, 36}, BR, "Free space", {.text = 24}),
    hidden(row("frameRip", Kind::Frame, {884, 212, 384, 340}, TR | Bottom, "How far the run is")),
    in("frameRip", hidden(row("prgTotal", Kind::Progress, {8, 8, 368, 52}, TLR, "All tracks"))),
    in("frameRip", hidden(row("prgTrack", Kind::Progress, {8, 66, 368, 52}, TLR, "This track"))),
    in("frameRip", hidden(row("txtStatus", Kind::Text, {8, 124, 368, 128}, All, "What was done"))),
    in("frameRip", row("cmdLeave", Kind::Button, {8, 258, 368, 76}, BLR, "Leave the ripper at work",
                       {.caption = "Leave it at work"})),
    row("cmdExtract", Kind::Button, {884, 604, 188, 76}, BR, "Rip the ticked tracks",
        {.caption = "Rip", .colours = "Accent"}),
    hidden(row("cmdRipStop", Kind::Button, {1080, 604, 188, 76}, BR, "Cancel the run",
               {.caption = "Cancel"})),
    row("cmdEnd", Kind::Button, {884, 688, 384, 72}, BR, "Done",
        {.caption = "Done", .cancels = true}),

    hidden(row("KeyBoard", Kind::Frame, {0, 400, 1280, 368}, BLR, "Keyboard",
               {.colours = "Keyboard"})),
    key("ekey", 0, Kind::Button),
    key("ebubble", 0, Kind::Frame, {.colours = "Accent"}),
    key("evariant", 0, Kind::Button),
    key("BtnEnh1", -1, Kind::Button),
    row("ekeyTimer", Kind::Timer, {}, TL, ""),
};

}  // namespace

std::span<const InventoryRow> ripperInventory() {
  return kRows;
}

}  // namespace korvane
