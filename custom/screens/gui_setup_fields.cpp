#include "custom/screens/gui_setup_fields.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
using enum SetupGroup;

constexpr SetupPage kPages[] = {
    {"Network"}, {"Air Show"}, {"Music and movies"}, {"X10"}, {"Maps and camera"}};

constexpr SetupFrame kFrames[] = {
    {Nic, "fraNic", "Multi NIC Card Setup", 0},
    {Master, "fraMaster", "Master Listener", 0},
    {AirShow, "fraAirShow", "Air Show Server", 1},
    {Music, "fraMusic", "Music", 2},
    {Movies, "fraMovies", "Movies", 2},
    {X10, "fraX10", "X10", 3},
    {Maps, "fraMaps", "Maps", 4},
    {Camera, "fraCamera", "Camera", 4},
};

constexpr SetupField kFields[] = {
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
Rect cell(const SetupField& field) {
  const int across = field.columns == 0 ? 2 : 3, spans = std::max(field.columns, 1);
  const int width = (kWidth - 2 * kPad - kGap * (across - 1)) / across;
  return {kPad + field.column * (width + kGap), kFirstRow + field.row * kRow,
          spans * width + (spans - 1) * kGap, kHeight};
}

const char* frameOf(SetupGroup group) {
  return std::ranges::find(kFrames, group, &SetupFrame::group)->control;
}

void addField(std::vector<InventoryRow>& rows, const SetupField& field, int label) {
  Rect place = cell(field);
  if (field.kind == Kind::Text) {
    rows.push_back({"lblField",
                    label,
                    Kind::Label,
                    {place.left, place.top, kCaption, place.height},
                    TL,
                    "",
                    frameOf(field.group)});
    place.left += kCaption;
    place.width -= kCaption;
  }
  rows.push_back(
      {field.control, field.index, field.kind, place, TL, field.caption, frameOf(field.group)});
}

}  // namespace

std::span<const SetupPage> setupPages() {
  return kPages;
}
std::span<const SetupFrame> setupFrames() {
  return kFrames;
}
std::span<const SetupField> setupFields() {
  return kFields;
}
std::span<const SetupText> setupTexts() {
  return kTexts;
}

std::vector<InventoryRow> guiSetupInventory() {
  constexpr int kRail = 24, kRailWidth = 296;
  std::vector<InventoryRow> rows{
      {"lblTitle", -1, Kind::Label, {kRail, 16, 800, 64}, TL, "Setup"},
      {"cmdGeneral", -1, Kind::Button, {kRail, 576, kRailWidth, 76}, TL, "General Setup"},
      {"cmdColor", -1, Kind::Button, {kRail, 664, kRailWidth, 88}, TL, "Color setup"},
      {"cmdSync", -1, Kind::Button, {344, 664, 288, 88}, TL, "Sync Home and Car Systems"},
      {"cmdCmd", 0, Kind::Button, {968, 664, 288, 88}, TL, "Save"},
      {"cmdCmd", 1, Kind::Button, {664, 664, 288, 88}, TL, "Cancel"},
  };
  int top = 96;
  for (int i = 0; i < static_cast<int>(std::size(kPages)); ++i, top += 92)
    rows.push_back(
        {"cmdPage", i, Kind::Button, {kRail, top, kRailWidth, 80}, TL, kPages[i].caption});
  for (const SetupFrame& frame : kFrames)
    rows.push_back(
        {frame.control, -1, Kind::Frame, {kLeft, kFirstTop, kWidth, kFirstRow}, TL, frame.caption});
  int label = 0;
  for (const SetupField& field : kFields) addField(rows, field, label++);
  return rows;
}

void stackSetupFrames(const Form& form) {
  std::array<int, std::size(kPages)> tops;
  tops.fill(kFirstTop);
  for (const SetupFrame& frame : kFrames) {
    int rows = 0;
    for (const SetupField& field : kFields) {
      const Control* control = form.find(QString::fromLatin1(field.control), field.index);
      if (field.group == frame.group && control->visible()) rows = std::max(rows, field.row + 1);
    }
    Control* box = form.find(QString::fromLatin1(frame.control));
    int& top = tops[static_cast<size_t>(frame.page)];
    box->rect = Rect{kLeft, top, kWidth, kFirstRow + rows * kRow + 8};
    top = box->rect().bottom() + kGap;
  }
}

}  // namespace korvane
