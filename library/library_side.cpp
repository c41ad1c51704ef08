#include "library/library_side.h"

namespace korvane {

LibrarySide::LibrarySide(Desk& d)
    : desk_(d),
      database(d.settings.home()),
      playlists({d.state, d.settings, d.system.files, d.system.pump, d.log, database}),
      browsing(d.frmMain, {d.main, d.state, d.settings, d.screen, d.messages, d.system.box, d.log,
                           d.palette, d.paging, database, playlists}),
      editor(d.frmMain, {d.main, d.state, d.screen, d.messages, d.palette, d.system.pump, d.paging,
                         database, playlists, browsing}),
      favourites(d.frmMain, {d.state, d.settings, d.system.files, d.system.pump, d.screen,
                             d.messages, database, playlists, browsing}),
      import(database, d.system.pump, d.settings, d.log),
      scan({d.chooser, d.settings, d.system.files, d.screen, d.messages, import, *this}),
      singleSong({d.dialogs, d.chooser, d.settings, d.system.files, d.system.pump, d.screen, import,
                  *this}),
      mp3Setup({d.dialogs, d.chooser, d.settings, d.system.files, import, *this, scan, singleSong}),
      playList({d.dialogs, d.state, d.log, playlists, *this}) {
  database.onUnreadable = [this](const QString& why) {
    desk_.system.pump.later([this, why] { desk_.messages.say(why); });
  };
  browsing.setEditor(editor);
  addSteps();
  connectLists();
  connectPlaylists();
  openDoors();
}

void LibrarySide::addSteps() {
  // Reads the whole library unless a list file stands for it.
  desk_.steps.at(Step::Requirements, [this] { database.getAllSongs(); });
  desk_.steps.at(Step::SetUpLists, [this] { browsing.setUpGrids(); });
  // A reload that finds no library: said once, for the three lists stand as they were.
  desk_.steps.at(Step::FillArtists, [this] { saying([this] { browsing.fillArtists(); }); });
  desk_.steps.at(Step::FillAlbums, [this] { browsing.fillAlbums(); });
  desk_.steps.at(Step::FillSongs, [this] { browsing.fillSongs(); });
}

void LibrarySide::connectLists() {
  Form& form = desk_.frmMain;
  desk_.on(u"cmdTop", Event::Click,
           [this](int i) { browsing.cmdTop_Click(static_cast<PageCommand>(i)); });
  desk_.on(u"cmdOneSong", Event::Press, [this](int i) { editor.cmdOneSong_Press(i); });
  desk_.on(u"KeyboardTimer", Event::Tick, [this](int) { browsing.KeyboardTimer_Tick(); });
  const auto listOf = [](const Control& grid) { return static_cast<MusicList>(grid.index); };
  form.on(u"Grid", Event::Click, [this, listOf](Control& grid, const Event& event) {
    browsing.Grid_Click(listOf(grid), event.column, event.row);
  });
  form.on(u"Grid", Event::DblClick, [this, listOf](Control& grid, const Event& event) {
    // Where one tap plays, a tap that chooses a song for the list being edited must not.
    if (desk_.state.playListEditing && desk_.settings.flag(key::SinglePress)) return;
    browsing.Grid_DblClick(listOf(grid), event.column, event.row);
  });
  form.on(u"Grid", Event::ButtonClicked, [this, listOf](Control& grid, const Event& event) {
    browsing.Grid_ButtonClicked(listOf(grid), event.column, event.row);
  });
  desk_.guard(form, u"Grid", Event::ButtonClicked);
  form.on(Event::KeyDown,
          [this](Control&, const Event& event) { browsing.Form_KeyDown(event.key); });
  form.on(Event::KeyPress,
          [this](Control&, const Event& event) { browsing.Form_KeyPress(event.text); });
}

void LibrarySide::connectPlaylists() {
  Form& form = desk_.frmMain;
  SearchPanel& search = editor.searchPanel();
  desk_.on(u"cmdFavoriateAdd", Event::Click, [this](int) { favourites.cmdFavoriateAdd_Click(); });
  desk_.on(u"cmdPlayLists", Event::Click, [this](int) { playList.open(); });
  desk_.on(u"cmdPlayListCommands", Event::Click,
           [this](int i) { editor.cmdPlayListCommands_Click(i); });
  desk_.on(u"cmdPlayListChoices", Event::Click,
           [this](int i) { editor.cmdPlayListChoices_Click(i); });
  desk_.on(u"playlistslider", Event::Change, [this](int) { editor.playlistslider_Change(); });
  desk_.on(u"playlistslider", Event::Scroll, [this](int) { editor.playlistslider_Change(); });
  desk_.on(u"txtSearch", Event::Change, [&search](int) { search.txtSearch_Change(); });
  desk_.on(u"txtSearch", Event::Click, [&search](int) { search.txtSearch_Click(); });
  desk_.on(u"cmdSearchKind", Event::Click, [&search](int i) { search.cmdSearchKind_Click(i); });
  form.on(u"gridPlayListSongs", Event::Click,
          [this](Control&, const Event& event) { editor.gridPlayListSongs_Click(event.row); });
  form.on(u"gridSearch", Event::Click,
          [&search](Control&, const Event& event) { search.gridSearch_Click(event.row); });
  desk_.guard(playList.form(), u"cmdPlayListChoices", Event::Click, PlayListForm::guardedChoices());
}

void LibrarySide::openDoors() {
  ScreenDoors& setup = desk_.setupDoors;
  setup.add({"cmdAddDir", 2, [this] { mp3Setup.open(); }});
  setup.add({"cmdAddDir", 3, [this] { choosePlaylistDirectory(); }});
  setup.add({"cmdPlayLists", -1, [this] {
               if (playList.open()) desk_.leaveSetup();
             }});
  desk_.advancedDoors.add({"cmdExportFavoriates", 0, [this] { favourites.exportFavorites(); }});
  desk_.advancedDoors.add({"cmdExportFavoriates", 1, [this] { favourites.importFavorites(); }});
}

void LibrarySide::choosePlaylistDirectory() {
  ChooserRequest request;
  request.title = u"Select Playlist Directory"_s;
  request.pattern = u"*.m3u"_s;
  request.places = {desk_.settings.str(key::PLDirectory)};
  request.keep = [this](const QString& directory) {
    QString error;
    desk_.settings.write(key::PLDirectory, directory, &error);
    return error;
  };
  if (const auto chosen = desk_.chooser.open(request)) desk_.state.gPlaylistDir = *chosen;
}

void LibrarySide::saying(const std::function<void()>& work) {
  try {
    work();
  } catch (const std::exception& failure) {
    desk_.messages.say(QString::fromUtf8(failure.what()));
    throw;
  }
}

void LibrarySide::songsChanged() {
  // From the event loop, where nobody else would catch.
  const auto fill = [this] {
    desk_.log.guard("songsChanged", "Class Module LibrarySide", [this] {
      saying([this] {
        browsing.fillArtists();
        browsing.fillAlbums();
        browsing.fillSongs();
      });
    });
  };
  desk_.state.gFavoritesLoaded = false;
  database.refreshLists(desk_.system.pump, fill);
  browsing.resetPlayListView();  // an album or a playlist that stands open may have changed
}

void LibrarySide::erase() {
  database.erase();
  songsChanged();
}

void LibrarySide::usePlayList(const QString& name, const QString& path) {
  desk_.openTab(kMusicTab);
  browsing.cmdTop_Click(PageCommand::Playlists);
  browsing.openPlaylist(name, path);
}

void LibrarySide::editPlayList(const QString& name, const QString& path) {
  desk_.openTab(kMusicTab);
  editor.edit(name, path);
}

void LibrarySide::createPlayList() {
  desk_.openTab(kMusicTab);
  editor.create();
}

}  // namespace korvane
