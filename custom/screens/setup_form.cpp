#include "custom/screens/setup_form.h"

#include "custom/screens/setup_rows.h"

namespace korvane {
namespace {

constexpr Rect kDoors{440, 96, 816, 440};
constexpr int kDoorHeight = 96, kDoorGap = 16;
constexpr int kFewDoors = 8;  // as many fit in two columns

constexpr InventoryRow door(const char* name, int index, const char* text) {
  return setupRow(name, index, Kind::Button, kDoors, text);
}

constexpr InventoryRow kSetup[] = {
    titleRow("Setup"),
    setupRow("LstThemes", -1, Kind::Grid, {24, 96, 392, 344}, "Themes"),
    setupRow("cmdThemes", -1, Kind::Button, {24, 456, 392, 96}, "Change Theme"),
    door("cmdAddDir", 0, "Setup Photos  Directory"),
    door("cmdAddDir", 1, "Movies Setup"),
    door("cmdAddDir", 2, "Digital Music Setup"),
    door("cmdAddDir", 3, "Setup Playlist Directory"),
    door("cmdAddDir", 4, "X10 Setup"),
    door("cmdAddDir", 5, "Ads/Screen Saver"),
    door("cmdPlayLists", -1, "Playlists"),
    door("cmdButtons", -1, "Custom Buttons"),
    door("cmdMoveControls", -1, "Move Controls"),
    door("cmdListener", -1, "Listeners test"),
    door("cmdFtp", -1, "FTP"),
    door("cmdOther", -1, "Advanced"),
    setupRow("lblPhoto", -1, Kind::Label, {24, 568, 1232, 40}, "Photo directory"),
    setupRow("Label2", -1, Kind::Label, {24, 608, 1232, 40}, "Playlist directory"),
    setupRow("lblStat", -1, Kind::Label, {24, 652, 392, 112}, "Library", {.wraps = true}),
    setupRow("cmdErase", -1, Kind::Button, {440, 656, 400, 96}, "Erase all settings"),
    setupRow("cmdOK", -1, Kind::Button, {856, 656, 400, 96}, "Exit", {.accent = true}),
};

}  // namespace

std::vector<Control*> SetupForm::Panel::doors() const {
  std::vector<Control*> all(cmdAddDir.begin(), cmdAddDir.end());
  for (Control* one : {cmdPlayLists, cmdButtons, cmdMoveControls, cmdListener, cmdFtp, cmdOther})
    all.push_back(one);
  return all;
}

SetupForm::SetupForm(const Uses& uses)
    : Dialog(uses.dialog, u"frmSetup"_s, kSetup), uses_(uses), panel_(form_) {
  panel_.LstThemes->columns = {{u"Theme"_s}};
  for (Control* door : panel_.doors())
    if (door->index <= 0)
      form_.on(door->name, Event::Click, [this](Control& pressed, const Event&) {
        doors_->open(pressed);
        if (form_.shown()) Form_Activate();
      });
  onClick(u"cmdThemes", [this](int) { cmdThemes_Click(); });
  onClick(u"cmdErase", [this](int) { cmdErase_Click(); });
  onClick(u"cmdOK", [this](int) { cmdOK_Click(); });
}

void SetupForm::open() {
  if (run([this] { Form_Load(); })) Form_QueryUnload();
}

void SetupForm::Form_Load() {
  reloadRequested = false;
  mainPageBefore_ = uses_.state.gMainPage;
  uses_.addTimer.rest(this, true);
  fillThemes();
  Form_Activate();
}

// Also after a screen that was opened from here: it may have stored another directory.
void SetupForm::Form_Activate() {
  panel_.lblPhoto->caption = u"Current Photo Dir = "_s + uses_.settings.raw(key::PDirectory);
  panel_.Label2->caption = u"Current Playlist Dir = "_s + uses_.settings.raw(key::PLDirectory);
  try {
    panel_.lblStat->caption = uses_.parts.getLibraryCounts();
  } catch (const std::exception& failure) {
    panel_.lblStat->caption = QString::fromUtf8(failure.what());
  }
  showDoors();
}

void SetupForm::Form_QueryUnload() {
  uses_.addTimer.rest(this, false);
}

void SetupForm::showDoors() {
  const std::vector<Control*> doors = panel_.doors();
  for (Control* door : doors) door->visible = doors_->find(*door) != nullptr;
  if (uses_.state.gX10 != "YES"_L1) panel_.cmdAddDir[4]->visible = false;
  if (uses_.state.gMainPage != "CB"_L1) panel_.cmdButtons->visible = false;
  const auto shown =
      std::ranges::count_if(doors, [](const Control* door) { return door->visible(); });
  flow(doors, kDoors, shown > kFewDoors ? 3 : 2, kDoorHeight, kDoorGap);
}

void SetupForm::fillThemes() {
  const QStringList themes = uses_.graphics.themes(uses_.files);
  std::vector<RowTable::Row> rows;
  int active = 0;
  for (const QString& theme : themes) {
    rows.push_back({{theme}});
    if (trimBlanks(theme.toUpper()) == uses_.state.gTheme) active = static_cast<int>(rows.size());
  }
  panel_.LstThemes->setRows(std::move(rows));
  panel_.LstThemes->row = active;
}

void SetupForm::cmdThemes_Click() {
  const QString chosen = trimBlanks(panel_.LstThemes->cell(1, panel_.LstThemes->row()).toUpper());
  if (chosen.isEmpty()) return;
  QString error;
  if (!uses_.settings.write(key::Theme, chosen, &error)) {
    dialog_.messages.say(error);
    return;
  }
  uses_.state.gTheme = chosen;
  reloadRequested = true;
  close();
}

void SetupForm::cmdErase_Click() {
  const QString question = u"Are you sure???\n All settings and will be perminantly erased! "_s;
  if (uses_.box.show(question, true) != SystemBox::Yes) return;
  try {
    uses_.parts.eraseLibrary();
  } catch (const std::exception& failure) {
    uses_.box.show(QString::fromUtf8(failure.what()));
  }
  Form_Activate();
}

void SetupForm::cmdOK_Click() {
  if (uses_.state.gMainPage != mainPageBefore_) uses_.parts.showMainPage();
  close();
}

}  // namespace korvane
