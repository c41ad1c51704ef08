#include "custom/custom_side.h"

#include "custom/buttons/button_entries.h"

namespace korvane {

CustomSide::CustomSide(Desk& d, LibrarySide& library, ListenerSide& listener,
                       PlaybackSide& playback)
    : desk_(d),
      library_(library),
      listener_(listener),
      panel_(d.frmMain),
      buttons(d.frmMain,
              {d.graphics, d.palette, d.system.files, d.log, d.screen, d.system.programs, d.words}),
      buttonEditor(d.frmMain, {buttons, d.messages}),
      homePanel(d.frmMain, {d.state, d.settings, d.system.clock}),
      mainTab(d.parts, d.tabs, buttons, homePanel),
      movedControls({d.main, d.graphics, d.system.files}),
      guestLock(d.frmMain, {d.state, d.settings, d.messages}),
      keyboardFiles({d.settings, d.system.files, d.log}),
      keyboard(d.host, d.palette),
      searchKeyboard(d.frmMain, d.palette),
      newKeyboard(d.frmMain, u"newKeyboard"_s, d.host, d.palette),
      colours({d.dialogs, d.settings}),
      guiSetup({d.dialogs, d.state, d.settings, d.frmMain, *this}),
      nic(d.dialogs, d.system.network),
      setup({d.dialogs, d.state, d.settings, d.system.files, d.graphics, d.system.box, d.addTimer,
             *this}),
      access({d.state, d.settings, d.messages, *this, setup}) {
  d.tabs.setTab(kMainTab, mainTab);
  d.messages.setLinePrompt(&keyboard);
  d.steps.at(Step::MovedControls, [this] { movedControls.loadMovedControls(); });
  d.steps.at(Step::MainPage, [this] { mainTab.domainpage(); });
  useKeyboard();
  connectLock(playback);
  connectHome(playback);
  connectButtons();
  connectEditor();
  connectKeyboards(playback.listUndo);
  openDoors();
  addWords();
}

void CustomSide::connectLock(PlaybackSide& playback) {
  desk_.admits = [this] { return guestLock.admits(); };
  playback.jukebox.modeChanged = [this] { guestLock.lock(); };
}

void CustomSide::connectHome(PlaybackSide& playback) {
  desk_.on(u"HomeTimer", Event::Tick, [this](int) { homePanel.HomeTimer_Timer(); });
  desk_.on(u"cmdHome", Event::Click, [this](int i) { homePanel.cmdHome_Click(i); });
  constexpr int kNext = 2;
  desk_.guard(desk_.frmMain, u"cmdHome", Event::Click, {kNext});
  for (const char* name : {"picHomeCover", "lblHomeTitle", "lblHomeArtist"})
    desk_.on(QString::fromLatin1(name), Event::Click, [this](int) { homePanel.showSong(); });
  Transport& transport = playback.transport;
  const auto movie = [this]() -> Player* {
    Player* heard = desk_.players.heard();
    return heard && heard->sound() == Player::Sound::Movies ? heard : nullptr;
  };
  homePanel.pressTransport = [this, &playback, movie](TransportButton button) {
    Player* const plays = movie();
    desk_.players.press(plays ? *plays : playback.musicTab.music(), button);
  };
  homePanel.playPause = [this, &playback, movie] {
    Player* const plays = movie();
    if (!plays) return playback.quick.playPause(playback.musicTab.music());
    const bool pauses = plays->mode() == PlayMode::Playing;
    desk_.players.press(*plays, pauses ? TransportButton::Pause : TransportButton::Play);
  };
  homePanel.showSong = [this, &transport, movie] {
    movie() ? desk_.openTab(kMoviesTab) : transport.lblCurrentPlay_DblClick();
  };
  homePanel.artist = [this, &transport, movie] {
    if (movie()) return u"Movie in the cabin"_s;
    return desk_.state.playsDiscAudio() ? QString() : transport.started().song().Artist;
  };
}

void CustomSide::connectButtons() {
  desk_.on(u"cmdbutton", Event::Click, [this](int i) {
    if (!buttonEditor.isOpen()) buttons.cmdbutton_Click(i);
  });
  desk_.on(u"ButtonTimer", Event::Tick, [this](int) { buttons.ButtonTimer_Timer(); });
  buttons.programShown = [this] { desk_.window.showAlwaysOnTop(); };
  buttons.programsEnded = [this] { desk_.window.closeAlwaysOnTop(); };
  buttons.admits = [this] { return desk_.admits(); };
}

void CustomSide::connectEditor() {
  const auto on = [this](QStringView name, void (ButtonEditor::*handler)()) {
    desk_.on(name, Event::Click, [this, handler](int) { (buttonEditor.*handler)(); });
  };
  on(u"cmdButtonAdd", &ButtonEditor::cmdButtonAdd_Click);
  on(u"cmdButtonLabel", &ButtonEditor::cmdButtonLabel_Click);
  on(u"cmdButtonAction", &ButtonEditor::cmdButtonAction_Click);
  on(u"cmdButtonApplyAttr", &ButtonEditor::cmdButtonApplyAttr_Click);
  on(u"cmdButtonKeyboard", &ButtonEditor::cmdButtonKeyboard_Click);
  on(u"cmdButtonDel", &ButtonEditor::cmdButtonDel_Click);
  on(u"cmdButtonDone", &ButtonEditor::cmdButtonDone_Click);
  on(u"cmdButtonCancel", &ButtonEditor::cmdButtonCancel_Click);
  desk_.on(u"cmdbutton", Event::Press, [this](int i) { buttonEditor.cmdbutton_MouseDown(i); });
  desk_.on(u"cmdbutton", Event::Release, [this](int i) { buttonEditor.cmdbutton_MouseUp(i); });
  desk_.on(u"frameButtons", Event::Release, [this](int) { buttonEditor.frameButtons_MouseUp(); });
  for (const char* name : {"txtButtonWide", "txtButtonHigh", "txtButtonFontSize"})
    desk_.frmMain.on(QString::fromLatin1(name), Event::Click, [this](Control& box, const Event&) {
      buttonEditor.txtButton_Click(dynamic_cast<TextBox&>(box));
    });
  buttonEditor.showKeyboard = [this](TextBox* box) {
    if (box)
      newKeyboard.showFor(*box);
    else
      newKeyboard.hide();
  };
  buttonEditor.editing = [this](bool edits) { homePanel.editing(edits); };
  buttonEditor.chooseAction = [this] { return chooseAction(); };
}

void CustomSide::connectKeyboards(ListUndo& listUndo) {
  constexpr int kKeyboard = 1;  // of cmdmap
  PlaylistEditor& editor = library_.editor;
  editor.searchPanel().showKeyboard = [this, &listUndo](bool on) {
    if (!on) return searchKeyboard.hide();
    listUndo.hide();  // it would stand on the keys
    searchKeyboard.showFor(*panel_.txtSearch);
  };
  searchKeyboard.shownChanged = [this, &editor](bool) {
    editor.keyboardShown(searchKeyboard.top());
  };
  newKeyboard.shownChanged = [this](bool shown) {
    panel_.mapKeyboard->caption = shown ? u"Keyboard Off"_s : u"Keyboard On"_s;
  };
  newKeyboard.shownChanged(false);
  desk_.on(u"cmdmap", Event::Click, [this](int i) {
    if (i != kKeyboard) return;
    if (newKeyboard.shown()) return newKeyboard.hide();
    newKeyboard.showFor(*panel_.txtLookup);
  });
  desk_.onTabPress.push_back([this] { newKeyboard.hide(); });
  desk_.host.textTouched = [this](TextBox& box) {
    if (&box.form == &desk_.frmMain) return newKeyboard.showFor(box);
    keyboard.typeInto(box);
  };
}

void CustomSide::openDoors() {
  desk_.leaveSetup = [this] { setup.close(); };
  desk_.setupDoors.add({"cmdButtons", -1, [this] { editButtons(); }});
  desk_.setupDoors.add({"cmdOther", -1, [this] { guiSetup.open(); }});
  desk_.advancedDoors.add({"cmdMulti", -1, [this] { guiSetup.chooseNic(nic); }});
  desk_.advancedDoors.add({"cmdColor", -1, [this] { colours.open(); }});
  setup.setDoors(desk_.setupDoors);
  guiSetup.setDoors(desk_.advancedDoors);
  desk_.on(u"cmdSetup", Event::Click, [this](int) {
    if (!buttonEditor.isOpen()) return access.cmdSetup_Click();
    desk_.messages.say(u"You need to finish the custom buttons before proceeding to setup."_s);
  });
}

void CustomSide::addWords() {
  desk_.words.add({u"SETUP"_s, u"btnsetup"_s, u"open setup"_s,
                   desk_.guarded([this] { access.cmdSetup_Click(); })});
}

void CustomSide::editButtons() {
  showMainPage();
  buttonEditor.open();
  setup.close();
}

std::optional<QString> CustomSide::chooseAction() {
  ChooserRequest request;
  request.title = u"Select Action File"_s;
  request.kind = ChooserRequest::File;
  request.pattern = u"*.exe;*.com;*.bat"_s;
  request.places = {u"/usr/bin"_s};
  request.entries = customSelectEntries(desk_.words);
  request.alsoShown = [this](const QString& path) { return desk_.system.programs.runnable(path); };
  return desk_.chooser.open(request);
}

// Setup opens without a library too: there it can be erased and scanned again.
QString CustomSide::getLibraryCounts() {
  try {
    return library_.database.getLibraryCounts();
  } catch (const DatabaseError& failure) {
    return failure.text();
  }
}

void CustomSide::useKeyboard() {
  const KeyboardLayout chosen = keyboardFiles.chosen();
  keyboardLayout_ = chosen.name;
  keyboard.setLayout(chosen);
  searchKeyboard.setLayout(chosen);
  newKeyboard.setLayout(chosen);
}

bool CustomSide::nextKeyboardLayout(QString* error) {
  const QStringList names = keyboardFiles.names();
  const QString& next = names[(names.indexOf(keyboardLayout_) + 1) % names.size()];
  if (!keyboardFiles.choose(next, error)) return false;
  useKeyboard();
  return true;
}

void CustomSide::reloadMainForm() {
  desk_.startup.Form_Load();
  desk_.main.HideAllGrids();
}

void CustomSide::showMainPage() {
  desk_.tabs.imgTabs_Click(kMainTab);
  mainTab.domainpage();
}

void CustomSide::restartMasterListener() {
  listener_.master.close();
  listener_.master.connectionMLConnect();
}

}  // namespace korvane
