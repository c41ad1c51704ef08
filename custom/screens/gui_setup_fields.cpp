#include "custom/screens/gui_setup_fields.h"

#include "core/form/panel.h"
#include "custom/screens/setup_rows.h"

namespace korvane {
namespace {

using enum SetupGroup;

constexpr const char* kPages[] = {"Network", "Air Show", "Music and movies", "X10",
                                  "Maps and camera"};

struct FrameRow {
  SetupGroup group;
  const char *control, *caption;
  int page;  // of the array cmdPage
};
constexpr FrameRow kFrames[] = {
    {Nic, "fraNic", "Multi NIC Card Setup", 0},
    {Master, "fraMaster", "Master Listener", 0},
    {AirShow, "fraAirShow", "Air Show Server", 1},
    {Music, "fraMusic", "Music", 2},
    {Movies, "fraMovies", "Movies", 2},
    {X10, "fraX10", "X10", 3},
    {Maps, "fraMaps", "Maps", 4},
    {Camera, "fraCamera", "Camera", 4},
};

// One control of a group. A text has its caption in a label beside it.
struct Field {
  SetupGroup group;
  const char* control;
  int index;
  Kind kind;
  const char* caption;
  int row, column = 0, columns = 1;
};
constexpr Field kFields[] = {
    {Nic, "txtNIC", -1, Kind::Text, "Network card", 0, 0, 2},
    {Nic, "cmdMulti", -1, Kind::Button, "Select", 0, 2, 1},
    {Master, "txtMaster", 0, Kind::Text, "IP", 0, 0, 3},
    {Master, "txtMaster", 1, Kind::Text, "Port", 1, 0, 3},
    {Master, "txtMaster", 2, Kind::Text, "My Name", 2, 0, 3},
    {AirShow, "txtAirShow", 0, Kind::Text, "IP", 0, 0, 3},
    {AirShow, "txtAirShow", 1, Kind::Text, "Port", 1, 0, 3},
    {AirShow, "txtAirShow", 2, Kind::Text, "Unique Name", 2, 0, 3},
    {AirShow, "txtAirShow", 3, Kind::Text, "Router IP", 3, 0, 3},
    {AirShow, "txtAirShow", 4, Kind::Text, "WWWIP", 4, 0, 3},
    {Music, "lblIntListen", -1, Kind::Label, "Play at seat", 0, 0, 1},
    {Music, "optIntListen", 0, Kind::Check, "Yes", 0, 1, 1},
    {Music, "optIntListen", 1, Kind::Check, "No", 0, 2, 1},
    {Music, "cmdExportFavoriates", 0, Kind::Button, "Export Music Favorites", 1, 0, 0},
    {Music, "cmdExportFavoriates", 1, Kind::Button, "Import Music Favorites", 1, 1, 0},
    {Movies, "lblIntListenM", -1, Kind::Label, "Movie Listener", 0, 0, 1},
    {Movies, "optIntListenM", 0, Kind::Check, "Yes", 0, 1, 1},
    {Movies, "optIntListenM", 1, Kind::Check, "No", 0, 2, 1},
    {X10, "chkShowX10", -1, Kind::Check, "Show X10 Controls", 0, 0, 3},
    {X10, "optControls", 0, Kind::Check, "Premise", 1, 0, 1},
    {X10, "optControls", 1, Kind::Check, "TV", 1, 1, 1},
    {X10, "txtX10", -1, Kind::Text, "X10 IP", 2, 0, 3},
    {Maps, "ckRadio", -1, Kind::Check, "Radio on", 0, 0, 1},
    {Maps, "chkMap", -1, Kind::Check, "Maps on", 0, 1, 1},
    {Camera, "chkCamera", -1, Kind::Check, "Camera on", 0, 0, 1},
    {Camera, "cmdCamera", -1, Kind::Button, "Camera Device Select", 0, 1, 2},
    {Camera, "txtCameraDevice", -1, Kind::Text, "Camera device", 1, 0, 3},
    {Camera, "txtVideoFormat", -1, Kind::Text, "Video format", 2, 0, 3},
};

constexpr SetupText kTexts[] = {
    {"txtNIC", -1, key::NICCard, "any", "Network card"},
    {"txtAirShow", 1, key::SERVERPORT, "", "Port"},
    {"txtAirShow", 0, key::SERVERIP, "", "IP"},
    {"txtAirShow", 2, key::myname, "", "Unique Name"},
    {"txtAirShow", 3, key::RouterIP, "", "Router IP"},
    {"txtAirShow", 4, key::WWWIP, "", "WWWIP"},
    {"txtMaster", 0, key::MasterListenerIP, "", "IP"},
    {"txtMaster", 1, key::MasterListenerPort, "", "Port"},
    {"txtMaster", 2, key::MasterListenerMyName, "", "Name "},
    {"txtX10", -1, key::X10IP, "", "X10 IP"},
    {"txtCameraDevice", -1, key::CameraDevice, nullptr, "Camera device"},
    {"txtVideoFormat", -1, key::VideoFormat, nullptr, "Video format"},
};

constexpr int kLeft = 344, kWidth = 912, kPad = 24;  // of a frame
constexpr int kFirstTop = 96, kFirstRow = 64, kRow = 84, kHeight = 72, kGap = 16;
constexpr int kCaption = 240;  // width of a text's label

// Cell of a field within its frame: three to a row, or two where a field spans none.
Rect cell(const Field& field) {
  const int across = field.columns == 0 ? 2 : 3, spans = std::max(field.columns, 1);
  const int width = (kWidth - 2 * kPad - kGap * (across - 1)) / across;
  return {kPad + field.column * (width + kGap), kFirstRow + field.row * kRow,
          spans * width + (spans - 1) * kGap, kHeight};
}

const char* frameOf(SetupGroup group) {
  return std::ranges::find(kFrames, group, &FrameRow::group)->control;
}

void addField(std::vector<InventoryRow>& rows, const Field& field, int label) {
  Rect place = cell(field);
  const auto add = [&](InventoryRow row) {
    row.container = frameOf(field.group);
    rows.push_back(row);
  };
  if (field.kind == Kind::Text) {
    add(setupRow("lblField", label, Kind::Label, {place.left, place.top, kCaption, place.height},
                 field.caption));
    place.left += kCaption;
    place.width -= kCaption;
  }
  add(setupRow(field.control, field.index, field.kind, place, field.caption));
}

}  // namespace

std::span<const SetupText> setupTexts() {
  return kTexts;
}

std::vector<InventoryRow> guiSetupInventory() {
  constexpr int kRail = 24, kRailWidth = 296;
  std::vector<InventoryRow> rows{
      titleRow("Setup"),
      setupRow("cmdGeneral", -1, Kind::Button, {kRail, 576, kRailWidth, 76}, "General Setup"),
      setupRow("cmdColor", -1, Kind::Button, {kRail, 664, kRailWidth, 88}, "Color setup"),
      setupRow("cmdSync", -1, Kind::Button, {344, 664, 288, 88}, "Sync Home and Car Systems"),
      setupRow("cmdCmd", 0, Kind::Button, {968, 664, 288, 88}, "Save", {.accent = true}),
      setupRow("cmdCmd", 1, Kind::Button, {664, 664, 288, 88}, "Cancel", {.cancels = true}),
  };
  int number = 0;
  for (const char* page : kPages) {
    rows.push_back(
        setupRow("cmdPage", number, Kind::Button, {kRail, 96 + number * 92, kRailWidth, 80}, page));
    ++number;
  }
  for (const FrameRow& frame : kFrames)
    rows.push_back(setupRow(frame.control, -1, Kind::Frame, {kLeft, kFirstTop, kWidth, kFirstRow},
                            frame.caption));
  int label = 0;
  for (const Field& field : kFields) addField(rows, field, label++);
  return rows;
}

SetupFrames::SetupFrames(const Form& form) {
  for (const FrameRow& frame : kFrames) {
    frames_.push_back({&controlOf<Frame>(form, QString::fromLatin1(frame.control)), frame.page});
    Placed& placed = frames_.back();
    for (const Field& field : kFields)
      if (field.group == frame.group)
        placed.fields.emplace_back(
            &controlOf<Control>(form, QString::fromLatin1(field.control), field.index), field.row);
  }
}

void SetupFrames::stack() const {
  std::array<int, std::size(kPages)> tops;
  tops.fill(kFirstTop);
  for (const Placed& each : frames_) {
    int rows = 0;
    for (const auto& [control, row] : each.fields)
      if (control->visible()) rows = std::max(rows, row + 1);
    int& top = tops[static_cast<size_t>(each.page)];
    each.frame->rect = Rect{kLeft, top, kWidth, kFirstRow + rows * kRow + 8};
    top = each.frame->rect().bottom() + kGap;
  }
}

void SetupFrames::show(int page) const {
  for (const Placed& each : frames_) each.frame->visible = each.page == page;
}

}  // namespace korvane
