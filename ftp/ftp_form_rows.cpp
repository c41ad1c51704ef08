#include "ftp/ftp_form_rows.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr Kind kButton = Kind::Button, kLabel = Kind::Label;

// The buttons stand in two rows of six below the list.
constexpr Rect place(int row, int column) {
  return {24 + column * 207, 608 + row * 80, 197, 72};
}

constexpr InventoryRow button(const char* name, int row, int column, const char* text,
                              const char* tip = "") {
  return {name,
          -1,
          kButton,
          place(row, column),
          TL,
          text,
          "",
          true,
          {.caption = text, .tip = tip, .text = 24}};
}

constexpr InventoryRow heading(const char* name, Rect rect, const char* text) {
  return {name, -1, kLabel, rect, TL, "", "", true, {.caption = text}};
}

constexpr InventoryRow kFtp[] = {
    {"lblCaption",
     -1,
     kLabel,
     {24, 6, 1232, 46},
     TL,
     "Connection",
     "",
     true,
     {.text = 30, .bold = true}},
    heading("lblServer", {24, 52, 340, 30}, "Server"),
    heading("lblUser", {376, 52, 220, 30}, "User"),
    heading("lblPassword", {608, 52, 220, 30}, "Password"),
    {"txtServer", -1, Kind::Text, {24, 84, 340, 76}, TL, "Server"},
    {"txtUser", -1, Kind::Text, {376, 84, 220, 76}, TL, "User"},
    {"txtPassword", -1, Kind::Text, {608, 84, 220, 76}, TL, "Password"},
    {"cmdConnect",
     -1,
     kButton,
     {840, 84, 202, 76},
     TL,
     "Connect",
     "",
     true,
     {.caption = "Connect", .accent = true}},
    {"cmdDisconnect",
     -1,
     kButton,
     {1054, 84, 202, 76},
     TL,
     "Disconnect",
     "",
     true,
     {.caption = "Disconnect"}},
    {"lblDir", -1, kLabel, {24, 538, 1232, 34}, TL, "Folder of the server"},
    {"lv",
     -1,
     Kind::Grid,
     {24, 168, 1232, 368},
     TL,
     "Files of the server",
     "",
     true,
     {.caption = "Not connected"}},
    {"lblStatus", -1, kLabel, {24, 572, 600, 34}, TL, "Progress"},
    {"pb", -1, Kind::Progress, {640, 576, 616, 26}, TL, "Progress", "", false},
    button("cmdDownload", 0, 0, "Download", "Download file from Server"),
    button("cmdUpload", 0, 1, "Upload"),
    button("cmdDelete", 0, 2, "Delete", "Delete item"),
    button("cmdRename", 0, 3, "Rename", "Rename File"),
    button("cmdCreateDir", 1, 0, "New Folder", "Create Directory"),
    button("cmdRefresh", 1, 2, "Refresh", "Refresh Directory Listing"),
    button("optActive", 0, 4, "Active"),
    button("optPassive", 0, 5, "Passive"),
    button("optBin", 1, 3, "Binary"),
    button("optAscii", 1, 4, "ASCII"),
    button("cmdUploadDir", 1, 1, "Upload Folder"),
    {"cmdCancel",
     -1,
     kButton,
     place(1, 5),
     TL,
     "Close",
     "",
     true,
     {.caption = "Close", .text = 24, .cancels = true}},
};

}  // namespace

std::span<const InventoryRow> ftpInventory() {
  return kFtp;
}

}  // namespace korvane
