#include "custom/screens/setup_general_form.h"

#include "custom/screens/setup_rows.h"

namespace korvane {
namespace {

constexpr int kBoxes = 14;

struct Box {
  const char* caption;
  const SettingKey& key;
  const char *on, *off;
};

// In the order of the screen.
constexpr Box kOptions[kBoxes] = {
    {"Show Controls TAB", key::ShowControl, "1", "0"},
    {"Show Volume Controls ( +/-)", key::DisplayVolume, "1", "0"},
    {"Show Maps TAB", key::ShowMap, "1", "0"},
    {"Show Misc Control buttons", key::ControlButtons, "YES", "NO"},
    {"Show Photos TAB", key::ShowPhoto, "1", "0"},
    {"Misc Controls on Main Tab only", key::ControlButtonsmain, "1", "0"},
    {"Show Exit button", key::ShowExit, "1", "0"},
    {"Show Cabin/Seat Buttons", key::LocalServer, "1", "0"},
    {"Show Mute Button", key::ShowMute, "1", "0"},
    {"Allow Drag of Main form", key::MOVEMAIN, "1", "0"},
    {"Minimize to task bar", key::ShowInTheTaskBar, "YES", "NO"},
    {"Show Setup Button", key::ShowSetup, "1", "0"},
    {"Debug ON", key::debug, "1", "0"},
    {"Show Minimize button", key::ShowMin, "1", "0"},
};

// The order in which the boxes are written. The box of "ControlButtons" is not.
constexpr const SettingKey* kSaveOrder[] = {
    &key::debug,       &key::DisplayVolume, &key::ControlButtonsmain, &key::ShowInTheTaskBar,
    &key::MOVEMAIN,    &key::LocalServer,   &key::ShowExit,           &key::ShowSetup,
    &key::ShowMin,     &key::ShowMute,      &key::ShowPhoto,          &key::ShowMap,
    &key::ShowControl,
};

constexpr InventoryRow caption(const char* name, int top, const char* text) {
  return setupRow(name, -1, Kind::Label, {904, top, 352, 40}, text);
}

constexpr InventoryRow text(const char* name, int top, const char* spoken) {
  return setupRow(name, -1, Kind::Text, {904, top, 352, 72}, spoken);
}

constexpr InventoryRow kFixed[] = {
    titleRow("General Options"),
    setupRow("cmdKeyboardLayout", -1, Kind::Button, {904, 8, 352, 76}, "Keyboard layout"),
    caption("lblPw", 88, "Setup Password"),
    text("txtsetuppw", 128, "Setup password"),
    setupRow("cmdSetuppw", -1, Kind::Button, {904, 208, 352, 76}, "Setup Password"),
    caption("lblFont", 296, "Grid font size 2 - 25"),
    text("txtGridFontSize", 336, "Grid font size"),
    caption("lblHeight", 416, "Grid height 10 - 49"),
    text("txtGridHeight", 456, "Grid height"),
    caption("lblPage", 536, "Main page, WB or CB"),
    text("txtMainPage", 576, "Main page"),
    setupRow("cmdOK", -1, Kind::Button, {968, 664, 288, 88}, "OK", {.accent = true}),
};

std::vector<InventoryRow> inventory() {
  constexpr int kLefts[] = {24, 372}, kWidths[] = {348, 524}, kPitch = 92;
  std::vector<InventoryRow> rows(std::begin(kFixed), std::end(kFixed));
  for (int i = 0; i < kBoxes; ++i) {
    const Rect place{kLefts[i % 2], 96 + i / 2 * kPitch, kWidths[i % 2], 80};
    rows.push_back(setupRow("chkGeneral", i, Kind::Check, place, kOptions[i].caption));
  }
  return rows;
}

bool ticked(const Settings& settings, const Box& box) {
  const QString stored = settings.str(box.key);
  return *box.on == '1' ? stored == "1"_L1 : stored.toUpper() == "YES"_L1;
}

QString numericOr(const QString& stored, const QString& standard) {
  return isNumeric(stored) ? trimBlanks(stored) : standard;
}

}  // namespace

int gridNumber(const QString& text, const SettingKey& key, int unusable) {
  constexpr int kOutside = 19;
  const std::optional<double> number = numeric(text);
  if (!number) return unusable;
  return *number < key.low || *number > key.high ? kOutside : toInteger(*number);
}

SetupGeneralForm::SetupGeneralForm(const Uses& uses)
    : Dialog(uses.dialog, u"frmSetupGeneral"_s, inventory()), uses_(uses), panel_(form_) {
  for (int i = 0; i <= uses_.main.upperBound(u"Grid"); ++i)
    grids_.push_back(&controlOf<Grid>(uses_.main, u"Grid", i));
  onClick(u"txtGridFontSize",
          [this](int) { askInto(*panel_.txtGridFontSize, u"Grid font size"_s); });
  onClick(u"txtGridHeight", [this](int) { askInto(*panel_.txtGridHeight, u"Grid height"_s); });
  onClick(u"txtMainPage", [this](int) { askInto(*panel_.txtMainPage, u"Main page"_s); });
  onClick(u"cmdSetuppw", [this](int) { cmdSetuppw_Click(); });
  onClick(u"txtsetuppw", [this](int) { cmdSetuppw_Click(); });
  onClick(u"cmdKeyboardLayout", [this](int) { cmdKeyboardLayout_Click(); });
  onClick(u"cmdOK", [this](int) { leave(); });
}

void SetupGeneralForm::open() {
  run();
}

void SetupGeneralForm::load() {
  const Settings& settings = uses_.settings;
  showKeyboardLayout();
  const QString password = settings.str(key::Setup);
  panel_.txtsetuppw->text = password.toUpper() == "NO"_L1 ? QString() : password;
  panel_.txtMainPage->text = settings.raw(key::MainPage);
  panel_.txtGridFontSize->text = numericOr(settings.raw(key::GridFontSize), u"12"_s);
  panel_.txtGridHeight->text = numericOr(settings.raw(key::GridHeight), u"12"_s);
  for (size_t i = 0; i < kBoxes; ++i) panel_.chkGeneral[i]->checked = ticked(settings, kOptions[i]);
}

void SetupGeneralForm::save(SettingsToSave& settings) {
  for (const SettingKey* key : kSaveOrder) {
    const Box* box = std::ranges::find(kOptions, key, [](const Box& each) { return &each.key; });
    const bool on = panel_.chkGeneral[static_cast<size_t>(box - kOptions)]->checked();
    settings.write(*key, QString::fromLatin1(on ? box->on : box->off));
  }
  saveGrid(settings);
  saveMainPage(settings);
}

void SetupGeneralForm::saveGrid(SettingsToSave& settings) {
  const int font = gridNumber(panel_.txtGridFontSize->text(), key::GridFontSize, 12);
  const int height = gridNumber(panel_.txtGridHeight->text(), key::GridHeight, 19);
  settings.write(key::GridFontSize, QString::number(font));
  settings.write(key::GridHeight, QString::number(height));
  if (!settings.good()) return;
  uses_.state.gGridFontSize = font;
  uses_.state.gGridHeight = height;
  for (Grid* grid : grids_) {
    grid->rowHeight = height;
    grid->fontSize = font;
  }
  uses_.parts.gridLookChanged();
}

void SetupGeneralForm::saveMainPage(SettingsToSave& settings) {
  const QString typed = panel_.txtMainPage->text().toUpper();
  const QString page = typed == "CB"_L1 ? typed : u"WB"_s;
  settings.write(key::MainPage, page);
  if (settings.good()) uses_.state.gMainPage = page;
}

// Stored at once, whatever becomes of the other fields.
void SetupGeneralForm::cmdKeyboardLayout_Click() {
  QString error;
  if (!uses_.parts.nextKeyboardLayout(&error)) dialog_.messages.say(error);
  showKeyboardLayout();
}

void SetupGeneralForm::showKeyboardLayout() {
  panel_.cmdKeyboardLayout->caption = u"Keyboard: "_s + uses_.parts.keyboardLayout();
}

void SetupGeneralForm::cmdSetuppw_Click() {
  const QString typed = dialog_.messages.ask(u"Enter New Password"_s);
  if (typed.isEmpty()) return;
  QString error;
  if (uses_.settings.write(key::Setup, typed, &error))
    panel_.txtsetuppw->text = typed;
  else
    dialog_.messages.say(error);
}

}  // namespace korvane
