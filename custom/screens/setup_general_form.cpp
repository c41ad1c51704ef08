#include "custom/screens/setup_general_form.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
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

constexpr InventoryRow kFixed[] = {
    {"lblTitle", -1, Kind::Label, {24, 16, 800, 64}, TL, "General Options"},
    {"cmdKeyboardLayout", -1, Kind::Button, {904, 8, 352, 76}, TL, "Keyboard layout"},
    {"lblPw", -1, Kind::Label, {904, 88, 352, 40}, TL, ""},
    {"txtsetuppw", -1, Kind::Text, {904, 128, 352, 72}, TL, "Setup password"},
    {"cmdSetuppw", -1, Kind::Button, {904, 208, 352, 76}, TL, "Setup Password"},
    {"lblFont", -1, Kind::Label, {904, 296, 352, 40}, TL, ""},
    {"txtGridFontSize", -1, Kind::Text, {904, 336, 352, 72}, TL, "Grid font size"},
    {"lblHeight", -1, Kind::Label, {904, 416, 352, 40}, TL, ""},
    {"txtGridHeight", -1, Kind::Text, {904, 456, 352, 72}, TL, "Grid height"},
    {"lblPage", -1, Kind::Label, {904, 536, 352, 40}, TL, ""},
    {"txtMainPage", -1, Kind::Text, {904, 576, 352, 72}, TL, "Main page"},
    {"cmdOK", -1, Kind::Button, {968, 664, 288, 88}, TL, "OK"},
};

std::vector<InventoryRow> inventory() {
  constexpr int kLefts[] = {24, 372}, kWidths[] = {348, 524}, kPitch = 92;
  std::vector<InventoryRow> rows(std::begin(kFixed), std::end(kFixed));
  for (int i = 0; i < kBoxes; ++i) {
    const Rect place{kLefts[i % 2], 96 + i / 2 * kPitch, kWidths[i % 2], 80};
    rows.push_back({"chkGeneral", i, Kind::Check, place, TL, kOptions[i].caption});
  }
  return rows;
}

bool ticked(const Settings& settings, const Box& box) {
  const QString stored = settings.str(box.key);
  return *box.on == '1' ? stored == "1"_L1 : stored.toUpper() == "YES"_L1;
}

QString numericOr(const QString& stored, const QString& standard) {
  return isNumeric(stored) ? stored.trimmed() : standard;
}

}  // namespace

int gridNumber(const QString& text, const SettingKey& key, int unusable) {
  constexpr int kOutside = 19;
  if (!isNumeric(text)) return unusable;
  const double number = text.trimmed().toDouble();
  return number < key.low || number > key.high ? kOutside : static_cast<int>(std::lround(number));
}

SetupGeneralForm::SetupGeneralForm(Uses uses)
    : uses_(uses), form_(u"frmSetupGeneral"_s, inventory()), panel_(form_) {
  title(*panel_.lblTitle, u"General Options"_s);
  panel_.lblPw->caption = u"Setup Password"_s;
  panel_.lblFont->caption = u"Grid font size 2 - 25"_s;
  panel_.lblHeight->caption = u"Grid height 10 - 49"_s;
  panel_.lblPage->caption = u"Main page, WB or CB"_s;
  panel_.cmdSetuppw->caption = u"Setup Password"_s;
  panel_.cmdOK->caption = u"OK"_s;
  panel_.cmdOK->look.accent = true;
  for (size_t i = 0; i < kBoxes; ++i)
    panel_.chkGeneral[i]->caption = QString::fromLatin1(kOptions[i].caption);

  const std::pair<TextBox*, QString> asked[] = {
      {panel_.txtGridFontSize, u"Grid font size"_s},
      {panel_.txtGridHeight, u"Grid height"_s},
      {panel_.txtMainPage, u"Main page"_s},
  };
  for (const auto& [box, prompt] : asked)
    form_.on(box->name, Event::Click,
             [this, box = box, prompt = prompt](Control&, const Event&) { askInto(*box, prompt); });
  for (const char* button : {"cmdSetuppw", "txtsetuppw"})
    form_.on(QString::fromLatin1(button), Event::Click,
             [this](Control&, const Event&) { cmdSetuppw_Click(); });
  form_.on(u"cmdKeyboardLayout", Event::Click,
           [this](Control&, const Event&) { cmdKeyboardLayout_Click(); });
  form_.on(u"cmdOK", Event::Click, [this](Control&, const Event&) { uses_.host.hide(form_); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEscape = 27;
    if (event.key == kEscape) uses_.host.hide(form_);
  });
}

void SetupGeneralForm::open() {
  if (form_.shown()) return;
  dress(form_, uses_.palette);
  uses_.host.showModal(form_);
}

void SetupGeneralForm::load() {
  const Settings& settings = uses_.settings;
  panel_.cmdKeyboardLayout->caption = u"Keyboard: "_s + uses_.parts.keyboardLayout();
  const QString password = settings.str(key::Setup);
  panel_.txtsetuppw->text = password.toUpper() == "NO"_L1 ? QString() : password;
  panel_.txtMainPage->text = settings.raw(key::MainPage);
  panel_.txtGridFontSize->text = numericOr(settings.raw(key::GridFontSize), u"12"_s);
  panel_.txtGridHeight->text = numericOr(settings.raw(key::GridHeight), u"12"_s);
  for (size_t i = 0; i < kBoxes; ++i) panel_.chkGeneral[i]->checked = ticked(settings, kOptions[i]);
}

void SetupGeneralForm::save() {
  for (const SettingKey* key : kSaveOrder) {
    const Box* box = std::ranges::find(kOptions, key, [](const Box& each) { return &each.key; });
    const bool on = panel_.chkGeneral[static_cast<size_t>(box - kOptions)]->checked();
    uses_.settings.write(*key, QString::fromLatin1(on ? box->on : box->off));
  }
  saveGrid();
  saveMainPage();
}

void SetupGeneralForm::saveGrid() {
  AppState& state = uses_.state;
  state.gGridFontSize = gridNumber(panel_.txtGridFontSize->text(), key::GridFontSize, 12);
  state.gGridHeight = gridNumber(panel_.txtGridHeight->text(), key::GridHeight, 19);
  uses_.settings.write(key::GridFontSize, QString::number(state.gGridFontSize));
  uses_.settings.write(key::GridHeight, QString::number(state.gGridHeight));
  for (int i = 0; i <= uses_.main.upperBound(u"Grid"); ++i) {
    auto* grid = dynamic_cast<Grid*>(uses_.main.find(u"Grid", i));
    if (!grid) continue;
    grid->rowHeight = state.gGridHeight;
    grid->fontSize = state.gGridFontSize;
  }
  uses_.parts.gridLookChanged();
}

void SetupGeneralForm::saveMainPage() {
  const QString typed = panel_.txtMainPage->text().trimmed().toUpper();
  uses_.state.gMainPage = typed == "CB"_L1 ? typed : u"WB"_s;
  uses_.settings.write(key::MainPage, uses_.state.gMainPage);
}

void SetupGeneralForm::askInto(TextBox& box, const QString& prompt) {
  const QString typed = uses_.messages.ask(prompt);
  if (!typed.isEmpty()) box.text = typed;
}

// Written at once, whatever becomes of the other fields.
void SetupGeneralForm::cmdKeyboardLayout_Click() {
  uses_.parts.nextKeyboardLayout();
  panel_.cmdKeyboardLayout->caption = u"Keyboard: "_s + uses_.parts.keyboardLayout();
}

void SetupGeneralForm::cmdSetuppw_Click() {
  const QString typed = uses_.messages.ask(u"Enter New Password"_s);
  if (typed.isEmpty()) return;
  panel_.txtsetuppw->text = typed;
  uses_.settings.write(key::Setup, typed);
}

}  // namespace korvane
