#include "custom/screens/setup_form.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr unsigned TL = Left | Top;
constexpr Rect kDoors{440, 96, 816, 440};
constexpr int kDoorHeight = 96, kDoorGap = 16;
constexpr int kFewDoors = 8;  // as many fit in two columns

constexpr InventoryRow kSetup[] = {
    {"lblTitle", -1, Kind::Label, {24, 16, 800, 64}, TL, "Setup"},
    {"LstThemes", -1, Kind::Grid, {24, 96, 392, 344}, TL, "Themes"},
    {"cmdThemes", -1, Kind::Button, {24, 456, 392, 96}, TL, "Change Theme"},
    {"cmdAddDir", 0, Kind::Button, kDoors, TL, "Setup Photos Directory"},
    {"cmdAddDir", 1, Kind::Button, kDoors, TL, "Movies Setup"},
    {"cmdAddDir", 2, Kind::Button, kDoors, TL, "Digital Music Setup"},
    {"cmdAddDir", 3, Kind::Button, kDoors, TL, "Setup Playlist Directory"},
    {"cmdAddDir", 4, Kind::Button, kDoors, TL, "X10 Setup"},
    {"cmdAddDir", 5, Kind::Button, kDoors, TL, "Ads and screen saver"},
    {"cmdPlayLists", -1, Kind::Button, kDoors, TL, "Playlists"},
    {"cmdButtons", -1, Kind::Button, kDoors, TL, "Custom Buttons"},
    {"cmdMoveControls", -1, Kind::Button, kDoors, TL, "Move Controls"},
    {"cmdListener", -1, Kind::Button, kDoors, TL, "Listeners test"},
    {"cmdFtp", -1, Kind::Button, kDoors, TL, "FTP"},
    {"cmdOther", -1, Kind::Button, kDoors, TL, "Advanced"},
    {"lblPhoto", -1, Kind::Label, {24, 568, 1232, 40}, TL, "Photo directory"},
    {"Label2", -1, Kind::Label, {24, 608, 1232, 40}, TL, "Playlist directory"},
    {"lblStat", -1, Kind::Label, {24, 652, 392, 112}, TL, "Library"},
    {"cmdErase", -1, Kind::Button, {440, 656, 400, 96}, TL, "Erase all settings"},
    {"cmdOK", -1, Kind::Button, {856, 656, 400, 96}, TL, "Exit"},
};

constexpr const char* kAddDir[] = {
    "Setup Photos  Directory",  "Movies Setup", "Digital Music Setup",
    "Setup Playlist Directory", "X10 Setup",    "Ads/Screen Saver"};

}  // namespace

std::vector<Control*> SetupForm::Panel::doors() const {
  std::vector<Control*> all(cmdAddDir.begin(), cmdAddDir.end());
  for (Control* one : {cmdPlayLists, cmdButtons, cmdMoveControls, cmdListener, cmdFtp, cmdOther})
    all.push_back(one);
  return all;
}

SetupForm::SetupForm(Uses uses) : uses_(uses), form_(u"frmSetup"_s, kSetup), panel_(form_) {
  title(*panel_.lblTitle, u"Setup"_s);
  panel_.lblStat->wraps = true;
  panel_.cmdThemes->caption = u"Change Theme"_s;
  for (size_t i = 0; i < panel_.cmdAddDir.size(); ++i)
    panel_.cmdAddDir[i]->caption = QString::fromLatin1(kAddDir[i]);
  panel_.cmdPlayLists->caption = u"Playlists"_s;
  panel_.cmdButtons->caption = u"Custom Buttons"_s;
  panel_.cmdMoveControls->caption = u"Move Controls"_s;
  panel_.cmdOther->caption = u"Advanced"_s;
  panel_.cmdListener->caption = u"Listeners test"_s;
  panel_.cmdFtp->caption = u"FTP"_s;
  panel_.cmdErase->caption = u"Erase all settings"_s;
  panel_.cmdOK->caption = u"Exit"_s;
  panel_.cmdOK->look.accent = true;
  panel_.LstThemes->columns = {{u"Theme"_s}};

  for (Control* door : panel_.doors())
    if (door->index <= 0)
      form_.on(door->name, Event::Click, [this](Control& pressed, const Event&) {
        doors_->open(pressed);
        if (form_.shown()) Form_Activate();
      });
  form_.on(u"cmdThemes", Event::Click, [this](Control&, const Event&) { cmdThemes_Click(); });
  form_.on(u"cmdErase", Event::Click, [this](Control&, const Event&) { cmdErase_Click(); });
  form_.on(u"cmdOK", Event::Click, [this](Control&, const Event&) { cmdOK_Click(); });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEscape = 27;
    if (event.key == kEscape) cmdOK_Click();
  });
}

void SetupForm::open() {
  if (form_.shown()) return;
  Form_Load();
  uses_.host.showModal(form_);
  Form_QueryUnload();
}

void SetupForm::close() {
  uses_.host.hide(form_);
}

void SetupForm::Form_Load() {
  reloadRequested = false;
  mainPageBefore_ = uses_.state.gMainPage;
  uses_.AddTimer.enabled = false;
  dress(form_, uses_.palette);
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
  if (!uses_.state.moveControlsMode) uses_.AddTimer.enabled = uses_.state.gAddsOn;
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
    if (theme.trimmed().toUpper() == uses_.state.gTheme) active = static_cast<int>(rows.size());
  }
  panel_.LstThemes->setRows(std::move(rows));
  panel_.LstThemes->row = active;
}

void SetupForm::cmdThemes_Click() {
  const QString chosen = panel_.LstThemes->cell(1, panel_.LstThemes->row()).trimmed().toUpper();
  if (chosen.isEmpty()) return;
  uses_.state.gTheme = chosen;
  uses_.settings.write(key::Theme, chosen);
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
