#include "app/screens.h"

#include "app/console.h"

namespace korvane {

constexpr int kSmallCaption = 22;  // form units

Screens::Screens(Console& c)
    : console_(c),
      keyboardFiles({c.settings, c.system.files, c.log}),
      keyboard(c.host, c.palette),
      searchKeyboard(c.frmMain, c.palette),
      newKeyboard(c.frmMain, u"newKeyboard"_s, c.host, c.palette),
      import(c.database, c.system.pump, c.settings, c.log),
      directorys({c.host, c.palette, c.state, c.settings, c.system.files, c.screen, c.messages,
                  import, *this}),
      singleSong({c.host, c.palette, c.system.files, c.system.pump, c.screen, c.messages, import,
                  *this, directorys}),
      mp3Setup({c.host, c.palette, c.settings, c.messages, import, *this, directorys, singleSong}),
      playList({c.host, c.palette, c.state, c.log, c.messages, c.playlists, *this}),
      colours({c.host, c.palette, c.settings, c.messages}),
      guiSetup({c.host, c.palette, c.state, c.settings, c.messages, c.frmMain, *this}),
      nic(c.host, c.palette, c.system.network),
      setup({c.host, c.palette, c.state, c.settings, c.system.files, c.graphics, c.system.box,
             *dynamic_cast<Timer*>(c.frmMain.find(u"AddTimer")), *this}),
      access({c.state, c.settings, c.messages, *this, setup}) {
  c.messages.setLinePrompt(&keyboard);
  useKeyboard();
  wireSearch();
  wireKeyboards();
  setup.setDoors({{
      {"cmdAddDir", 0,
       [this] { chooseDirectory(u"Select Photos Directory"_s, DirectoryRequest::Photos); }},
      {"cmdAddDir", 2, [this] { mp3Setup.open(); }},
      {"cmdAddDir", 3,
       [this] { chooseDirectory(u"Select Playlist Directory"_s, DirectoryRequest::Playlist); }},
      {"cmdPlayLists", -1,
       [this] {
         if (playList.open()) console_.host.hide(setup.form());
       }},
      {"cmdButtons", -1, [this] { editButtons(); }},
      {"cmdOther", -1, [this] { guiSetup.open(); }},
      {"cmdListener", -1, [this] { console_.listeners.open(); }},
  }});
  c.buttonEditor.chooseAction = [this] { return chooseAction(); };
  guiSetup.setDoors({{
      {"cmdMulti", -1, [this] { guiSetup.chooseNic(nic); }},
      {"cmdColor", -1, [this] { colours.open(); }},
      {"cmdExportFavoriates", 0, [this] { console_.favourites.exportFavorites(); }},
      {"cmdExportFavoriates", 1, [this] { console_.favourites.importFavorites(); }},
  }});
}

void Screens::chooseDirectory(const QString& caption, DirectoryRequest::Store store) {
  DirectoryRequest request;
  request.caption = caption;
  request.store = store;
  directorys.open(request);
}

void Screens::editButtons() {
  showMainPage();
  console_.buttonEditor.open();
  setup.close();
}

std::optional<QString> Screens::chooseAction() {
  DirectoryRequest request;
  request.caption = u"Select Action File"_s;
  request.mode = u"SINGLE"_s;
  request.pattern = u"*.exe;*.com;*.bat"_s;
  request.path = u"/usr/bin"_s;
  request.customEntries = customSelectEntries();
  request.alsoShown = [this](const QString& path) {
    return console_.system.programs.runnable(path);
  };
  return directorys.open(request);
}

void Screens::songsChanged() {
  const auto fill = [this] {
    console_.browsing.fillArtists();
    console_.browsing.fillAlbums();
    console_.browsing.fillSongs();
  };
  console_.state.gFavoritesLoaded = false;
  console_.database.refreshLists(console_.system.pump, fill);
}

void Screens::useKeyboard() {
  const KeyboardLayout chosen = keyboardFiles.chosen();
  keyboardLayout_ = chosen.name;
  keyboard.setLayout(chosen);
  searchKeyboard.setLayout(chosen);
  newKeyboard.setLayout(chosen);
}

void Screens::wireSearch() {
  PlaylistEditor& editor = console_.editor;
  editor.searchPanel().showKeyboard = [this](bool on) {
    if (!on) return searchKeyboard.hide();
    console_.listUndo.hide();  // it would stand on the keys
    searchKeyboard.showFor(static_cast<TextBox&>(*console_.frmMain.find(u"txtSearch")));
  };
  searchKeyboard.shownChanged = [this, &editor](bool) {
    editor.keyboardShown(searchKeyboard.top());
  };
}

void Screens::wireKeyboards() {
  Form& form = console_.frmMain;
  newKeyboard.shownChanged = [&form](bool shown) {
    form.find(u"cmdmap", 1)->caption = shown ? u"Keyboard Off"_s : u"Keyboard On"_s;
  };
  newKeyboard.shownChanged(false);
  static_cast<Button*>(form.find(u"cmdmap", 1))->fontUnits = kSmallCaption;
  form.on(u"cmdmap", Event::Click, [this, &form](Control& pressed, const Event&) {
    if (pressed.index != 1) return;
    if (newKeyboard.shown()) return newKeyboard.hide();
    newKeyboard.showFor(*form.find(u"txtLookup"));
  });
  console_.host.textTouched = [this, &form](TextBox& box) {
    if (&box.form == &form) return newKeyboard.showFor(box);
    keyboard.typeInto(box);
  };
}

void Screens::nextKeyboardLayout() {
  const QStringList names = keyboardFiles.names();
  keyboardFiles.choose(names[(names.indexOf(keyboardLayout_) + 1) % names.size()]);
  useKeyboard();
}

void Screens::closeAlwaysOnTop() {
  console_.window.closeAlwaysOnTop();
}

void Screens::reloadMainForm() {
  console_.startup.Form_Load();
  console_.main.HideAllGrids();
}

void Screens::showMainPage() {
  console_.tabs.imgTabs_Click(kMainTab);
  console_.mainTab.domainpage();
}

QString Screens::getLibraryCounts() {
  return console_.database.getLibraryCounts();
}

void Screens::eraseLibrary() {
  console_.database.erase();
  songsChanged();
  console_.browsing.resetPlayListView();
}

void Screens::restartMasterListener() {
  console_.master.close();
  console_.master.connectionMLConnect();
}

void Screens::closeMovieConnection() {
  console_.connectionMovie->Close();
}

void Screens::gridLookChanged() {
  console_.browsing.setUpGrids();
}

void Screens::usePlayList(const QString& name, const QString& path) {
  openMusic();
  console_.browsing.cmdTop_Click(2);
  console_.browsing.openPlaylist(name, path);
}

void Screens::editPlayList(const QString& name, const QString& path) {
  openMusic();
  console_.editor.edit(name, path);
}

void Screens::createPlayList() {
  openMusic();
  console_.editor.create();
}

void Screens::openMusic() {
  if (!console_.tabs.open(kMusicTab)) console_.tabs.imgTabs_Click(kMusicTab);
}

void Screens::movieDirectoryChanged() {
  console_.tabs.imgTabs_Click(kMoviesTab);
}

void Screens::photoDirectoryChanged() {
  console_.tabs.imgTabs_Click(kPhotosTab);
}

}  // namespace korvane
