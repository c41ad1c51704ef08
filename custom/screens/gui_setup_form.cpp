#include "custom/screens/gui_setup_form.h"

#include "core/tab_controller.h"

namespace korvane {
namespace {

bool is(const char* a, const char* b) {
  return std::string_view(a) == b;
}

// Exactly one of a pair of options stands.
void choose(const std::array<Check*, 2>& pair, bool first) {
  pair[0]->checked = first;
  pair[1]->checked = !first;
}

}  // namespace

GuiSetupForm::GuiSetupForm(const SetupGeneralForm::Uses& uses)
    : Dialog(uses.dialog, u"frmGuiSetup"_s, guiSetupInventory()),
      uses_(uses),
      general_(uses),
      panel_(form_),
      frames_(form_),
      pCamera_(controlOf<Image>(uses.main, u"pCamera")) {
  for (const SetupText& text : setupTexts())
    fields_.push_back(
        {text, &controlOf<TextBox>(form_, QString::fromLatin1(text.control), text.index)});
  handlers();
  frames_.stack();
}

void GuiSetupForm::handlers() {
  onClick(u"cmdPage", [this](int page) { cmdPage_Click(page); });
  onClick(u"cmdCmd", [this](int command) { cmdCmd_Click(command); });
  onClick(u"cmdGeneral", [this](int) { general_.open(); });
  for (const char* door : {"cmdMulti", "cmdColor", "cmdCamera", "cmdSync", "cmdExportFavoriates"})
    form_.on(QString::fromLatin1(door), Event::Click,
             [this](Control& pressed, const Event&) { doors_->open(pressed); });
  onClick(u"optIntListen", [this](int option) { choose(panel_.optIntListen, option == 0); });
  onClick(u"optIntListenM", [this](int option) { choose(panel_.optIntListenM, option == 0); });
  onClick(u"optControls",
          [this](int option) { panel_.optControls[option == 0 ? 1 : 0]->checked = false; });
  for (const char* name :
       {"txtNIC", "txtAirShow", "txtMaster", "txtX10", "txtCameraDevice", "txtVideoFormat"})
    form_.on(QString::fromLatin1(name), Event::Click, [this](Control& pressed, const Event&) {
      const auto field = std::ranges::find(fields_, &pressed, &Field::box);
      askInto(*field->box, QString::fromLatin1(field->text.prompt));
    });
}

void GuiSetupForm::open() {
  run([this] { Form_Load(); });
}

void GuiSetupForm::chooseNic(NicForm& nic) {
  panel_.txtNIC->text = nic.choose(panel_.txtNIC->text());
}

void GuiSetupForm::Form_Load() {
  const Settings& settings = uses_.settings;
  for (const auto& [text, box] : fields_) {
    const bool trimmed = is(text.control, "txtMaster");
    const QString stored = trimmed ? settings.str(text.key) : settings.raw(text.key);
    box->text =
        text.whenNotSet && stored == "NO"_L1 ? QString::fromLatin1(text.whenNotSet) : stored;
  }
  choose(panel_.optIntListen, settings.flag(key::LOCALLISTENER));
  choose(panel_.optIntListenM, settings.flag(key::MovieListener));
  panel_.chkShowX10->checked = settings.upper(key::X10) == "YES"_L1;
  panel_.optControls[0]->checked = settings.flag(key::Premise);
  panel_.optControls[1]->checked = settings.flag(key::TV);
  panel_.ckRadio->checked = settings.flag(key::Radio);
  panel_.chkMap->checked = settings.flag(key::Maps);
  panel_.chkCamera->checked = settings.flag(key::Camera);
  general_.load();
  showDoors();
  cmdPage_Click(0);
}

void GuiSetupForm::showDoors() {
  for (Control* door : {panel_.cmdMulti, panel_.cmdColor, panel_.cmdCamera, panel_.cmdSync,
                        panel_.cmdExportFavoriates[0], panel_.cmdExportFavoriates[1]})
    door->visible = doors_->find(*door) != nullptr;
  frames_.stack();
}

void GuiSetupForm::cmdPage_Click(int index) {
  frames_.show(index);
  for (Button* page : panel_.cmdPage)
    page->colours = dialog_.palette.button(page->index == index ? u"Accent" : u"Button");
}

void GuiSetupForm::cmdCmd_Click(int index) {
  const bool stays = index == 0 && !save();
  if (!stays) leave();
}

bool GuiSetupForm::save() {
  if (panel_.ckRadio->checked() && panel_.chkMap->checked()) {
    dialog_.messages.say(u"You cannot have maps AND Radio on, choose one or the other or  none."_s);
    return false;
  }
  SettingsToSave settings(uses_.settings);
  saveTexts(settings, "txtNIC", "txtMaster");
  if (settings.good()) applyMasterListener();
  saveListeners(settings);
  saveX10(settings);
  general_.save(settings);
  saveMaps(settings);
  if (!settings.good()) dialog_.messages.say(settings.error());
  return settings.good();
}

void GuiSetupForm::saveTexts(SettingsToSave& settings, const char* first, const char* last) {
  bool within = false, ending = false;
  for (const auto& [text, box] : fields_) {
    within = within || is(text.control, first);
    if (ending && !is(text.control, last)) return;
    ending = ending || is(text.control, last);
    if (within) settings.write(text.key, box->text());
  }
}

void GuiSetupForm::applyMasterListener() {
  AppState& state = uses_.state;
  const auto adopt = [&](QString& kept, const SettingKey& key) {
    const QString stored = uses_.settings.str(key);
    const auto named = [](const QString& text) { return text == "NO"_L1 ? QString() : text; };
    const bool changed = named(stored) != named(kept);
    if (changed) kept = stored;
    return changed;
  };
  const bool ip = adopt(state.gMasterListenerIP, key::MasterListenerIP);
  const bool port = adopt(state.gMasterListenerPort, key::MasterListenerPort);
  const bool name = adopt(state.gMasterListenerMyName, key::MasterListenerMyName);
  if (ip || port || name) uses_.parts.restartMasterListener();
}

void GuiSetupForm::saveListeners(SettingsToSave& settings) {
  AppState& state = uses_.state;
  const bool movieListener = panel_.optIntListenM[0]->checked();
  settings.write(key::LOCALLISTENER, panel_.optIntListen[0]->checked() ? u"1"_s : u"0"_s);
  settings.write(key::MovieListener, movieListener ? u"1"_s : u"0"_s);
  if (!settings.good()) return;
  state.gMovieListener = movieListener;
  if (!movieListener && state.gMovieType == MovieType::ListenerDvd)
    state.gMovieType = MovieType::Dvd;
  uses_.parts.closeMovieConnection();
}

void GuiSetupForm::saveX10(SettingsToSave& settings) {
  settings.write(key::X10, panel_.chkShowX10->checked() ? u"YES"_s : u"NO"_s);
  saveTexts(settings, "txtX10", "txtX10");
  settings.write(key::Premise, panel_.optControls[0]->checked() ? u"YES"_s : u"NO"_s);
  settings.write(key::TV, panel_.optControls[1]->checked() ? u"YES"_s : u"NO"_s);
}

void GuiSetupForm::saveMaps(SettingsToSave& settings) {
  const bool camera = panel_.chkCamera->checked();
  settings.write(key::Maps, panel_.chkMap->checked() ? u"1"_s : u"0"_s);
  settings.write(key::Radio, panel_.ckRadio->checked() ? u"1"_s : u"0"_s);
  settings.write(key::Camera, camera ? u"1"_s : u"0"_s);
  saveTexts(settings, "txtCameraDevice", "txtVideoFormat");
  if (!settings.good()) return;
  uses_.state.gCamera = camera;
  pCamera_.visible = camera && uses_.state.currentTab == kMainTab;  // it lies on that tab alone
}

}  // namespace korvane
