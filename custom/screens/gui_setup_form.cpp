#include "custom/screens/gui_setup_form.h"

#include "core/dressing.h"
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

GuiSetupForm::GuiSetupForm(SetupGeneralForm::Uses uses)
    : uses_(uses), general_(uses), form_(u"frmGuiSetup"_s, guiSetupInventory()), panel_(form_) {
  captions();
  handlers();
  stackSetupFrames(form_);
}

void GuiSetupForm::captions() {
  title(*panel_.lblTitle, u"Setup"_s);
  panel_.cmdGeneral->caption = u"General Setup"_s;
  panel_.cmdColor->caption = u"Color setup"_s;
  panel_.cmdSync->caption = u"Sync Home and Car Systems"_s;
  panel_.cmdCmd[0]->caption = u"Save"_s;
  panel_.cmdCmd[0]->look.accent = true;
  panel_.cmdCmd[1]->caption = u"Cancel"_s;
  for (size_t i = 0; i < panel_.cmdPage.size(); ++i)
    panel_.cmdPage[i]->caption = QString::fromLatin1(setupPages()[i].caption);
  for (const SetupFrame& frame : setupFrames())
    form_.find(QString::fromLatin1(frame.control))->caption = QString::fromLatin1(frame.caption);
  int label = 0;
  for (const SetupField& field : setupFields()) {
    Control* beside = form_.find(u"lblField", label++);
    Control* own = form_.find(QString::fromLatin1(field.control), field.index);
    (beside ? beside : own)->caption = QString::fromLatin1(field.caption);
  }
}

void GuiSetupForm::handlers() {
  const auto onClick = [this](const QString& control, auto handler) {
    form_.on(control, Event::Click,
             [handler](Control& pressed, const Event&) { handler(pressed); });
  };
  onClick(u"cmdPage"_s, [this](Control& page) { cmdPage_Click(page.index); });
  onClick(u"cmdCmd"_s, [this](Control& command) { cmdCmd_Click(command.index); });
  onClick(u"cmdGeneral"_s, [this](Control&) { general_.open(); });
  for (const char* door : {"cmdMulti", "cmdColor", "cmdCamera", "cmdSync", "cmdExportFavoriates"})
    onClick(QString::fromLatin1(door), [this](Control& pressed) { doors_->open(pressed); });
  onClick(u"optIntListen"_s, [this](Control& c) { choose(panel_.optIntListen, c.index == 0); });
  onClick(u"optIntListenM"_s, [this](Control& c) { choose(panel_.optIntListenM, c.index == 0); });
  onClick(u"optControls"_s, [this](Control& chosen) {
    panel_.optControls[chosen.index == 0 ? 1 : 0]->checked = false;
  });
  for (const char* name :
       {"txtNIC", "txtAirShow", "txtMaster", "txtX10", "txtCameraDevice", "txtVideoFormat"})
    onClick(QString::fromLatin1(name), [this](Control& pressed) {
      for (const SetupText& text : setupTexts())
        if (&box(text) == &pressed) askInto(text);
    });
  form_.on(Event::KeyDown, [this](Control&, const Event& event) {
    constexpr int kEscape = 27;
    if (event.key == kEscape) cmdCmd_Click(1);
  });
}

void GuiSetupForm::open() {
  if (form_.shown()) return;
  Form_Load();
  uses_.host.showModal(form_);
}

void GuiSetupForm::chooseNic(NicForm& nic) {
  panel_.txtNIC->text = nic.choose(panel_.txtNIC->text());
}

TextBox& GuiSetupForm::box(const SetupText& text) {
  return *dynamic_cast<TextBox*>(form_.find(QString::fromLatin1(text.control), text.index));
}

void GuiSetupForm::Form_Load() {
  const Settings& settings = uses_.settings;
  dress(form_, uses_.palette);
  for (const SetupText& text : setupTexts()) {
    const QString stored = settings.raw(text.key);
    const bool shown = !text.whenNotSet || stored.trimmed() != "NO"_L1;
    const bool trimmed = is(text.control, "txtMaster");
    box(text).text = !shown    ? QString::fromLatin1(text.whenNotSet)
                     : trimmed ? stored.trimmed()
                               : stored;
  }
  choose(panel_.optIntListen, settings.flag(key::LOCALLISTENER));
  choose(panel_.optIntListenM, settings.flag(key::MovieListener));
  panel_.chkShowX10->checked = settings.upper(key::X10) == "YES"_L1;
  panel_.optControls[0]->checked = settings.flag(key::Premise);
  panel_.optControls[1]->checked = settings.flag(key::TV);
  panel_.ckRadio->checked = settings.str(key::Radio) == "1"_L1;
  panel_.chkMap->checked = settings.str(key::Maps) == "1"_L1;
  panel_.chkCamera->checked = settings.str(key::Camera) == "1"_L1;
  general_.load();
  showDoors();
  cmdPage_Click(0);
}

void GuiSetupForm::showDoors() {
  for (Control* door : {panel_.cmdMulti, panel_.cmdColor, panel_.cmdCamera, panel_.cmdSync,
                        panel_.cmdExportFavoriates[0], panel_.cmdExportFavoriates[1]})
    door->visible = doors_->find(*door) != nullptr;
  stackSetupFrames(form_);
}

void GuiSetupForm::cmdPage_Click(int index) {
  for (const SetupFrame& frame : setupFrames())
    form_.find(QString::fromLatin1(frame.control))->visible = frame.page == index;
  for (Button* page : panel_.cmdPage)
    page->colours = uses_.palette.button(page->index == index ? u"Accent" : u"Button");
}

void GuiSetupForm::cmdCmd_Click(int index) {
  const bool stays = index == 0 && !save();
  if (!stays) uses_.host.hide(form_);
}

void GuiSetupForm::askInto(const SetupText& text) {
  const QString typed = uses_.messages.ask(QString::fromLatin1(text.prompt));
  if (!typed.isEmpty()) box(text).text = typed;
}

void GuiSetupForm::write(const SettingKey& key, const char* value) {
  uses_.settings.write(key, QString::fromLatin1(value));
}

bool GuiSetupForm::save() {
  if (panel_.ckRadio->checked() && panel_.chkMap->checked()) {
    uses_.messages.say(u"You cannot have maps AND Radio on, choose one or the other or  none."_s);
    return false;
  }
  saveTexts("txtNIC", "txtMaster");
  applyMasterListener();
  saveListeners();
  saveX10();
  general_.save();
  saveMaps();
  return true;
}

// The texts from the first control of that name to the last one of the other.
void GuiSetupForm::saveTexts(const char* first, const char* last) {
  bool within = false, ending = false;
  for (const SetupText& text : setupTexts()) {
    within = within || is(text.control, first);
    if (ending && !is(text.control, last)) return;
    ending = ending || is(text.control, last);
    if (within) uses_.settings.write(text.key, box(text).text());
  }
}

void GuiSetupForm::applyMasterListener() {
  AppState& state = uses_.state;
  const auto adopt = [&](QString& kept, const SettingKey& key) {
    const QString stored = uses_.settings.str(key);
    const auto told = [](const QString& text) { return text == "NO"_L1 ? QString() : text; };
    const bool changed = told(stored) != told(kept);
    if (changed) kept = stored;
    return changed;
  };
  const bool ip = adopt(state.gMasterListenerIP, key::MasterListenerIP);
  const bool port = adopt(state.gMasterListenerPort, key::MasterListenerPort);
  const bool name = adopt(state.gMasterListenerMyName, key::MasterListenerMyName);
  if (ip || port || name) uses_.parts.restartMasterListener();
}

void GuiSetupForm::saveListeners() {
  AppState& state = uses_.state;
  write(key::LOCALLISTENER, panel_.optIntListen[0]->checked() ? "1" : "0");
  state.gMovieListener = panel_.optIntListenM[0]->checked();
  write(key::MovieListener, state.gMovieListener ? "1" : "0");
  if (!state.gMovieListener && state.gMovieType == MovieType::ListenerDvd)
    state.gMovieType = MovieType::Dvd;
  uses_.parts.closeMovieConnection();
}

void GuiSetupForm::saveX10() {
  write(key::X10, panel_.chkShowX10->checked() ? "YES" : "NO");
  saveTexts("txtX10", "txtX10");
  write(key::Premise, panel_.optControls[0]->checked() ? "YES" : "NO");
  write(key::TV, panel_.optControls[1]->checked() ? "YES" : "NO");
}

void GuiSetupForm::saveMaps() {
  write(key::Maps, panel_.chkMap->checked() ? "1" : "0");
  write(key::Radio, panel_.ckRadio->checked() ? "1" : "0");
  write(key::Camera, panel_.chkCamera->checked() ? "1" : "0");
  uses_.state.gCamera = panel_.chkCamera->checked();
  if (Control* camera = uses_.main.find(u"pCamera"))  // it lies on the Main tab alone
    camera->visible = uses_.state.gCamera && uses_.state.currentTab == kMainTab;
  saveTexts("txtCameraDevice", "txtVideoFormat");
}

}  // namespace korvane
