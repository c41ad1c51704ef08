#include "library/lists/playlist_editor.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr int kGap = 6;  // form units
constexpr int kOffTheForm = -9000;

bool givesSongs(MusicList list) {
  return list == MusicList::AllSongs || list == MusicList::AlbumSongs;
}

}  // namespace

PlaylistEditor::PlaylistEditor(Form& form, Uses uses)
    : uses_(uses),
      panel_(form),
      search_(form, {uses.messages, uses.screen, uses.palette, uses.state, uses.database},
              [this](const QString& title, const QString& path) { addSong(title, path); }) {}

void PlaylistEditor::create() {
  if (uses_.state.playListEditing) close();
  uses_.state.playListIsNew = true;
  uses_.state.playListFile.clear();
  panel_.gridPlayListSongs->clear();
  open(u"New playlist"_s);
}

void PlaylistEditor::edit(const QString& name, const QString& path) {
  QString error;
  std::optional<QList<PlaySong>> songs;
  {
    const Busy busy(uses_.screen, Screen::Custom);
    songs = uses_.playlists.read(path, &error);
  }
  if (!songs) {
    uses_.messages.say(error);
    return;
  }
  if (uses_.state.playListEditing) close();
  uses_.state.playListIsNew = false;
  uses_.state.playListFile = path;
  const PlaySongRows shown(*songs);
  std::vector<RowTable::Row> rows;
  rows.reserve(static_cast<size_t>(songs->size()));
  for (int row = 1; row <= shown.rowCount(); ++row)
    rows.push_back({{shown.cell(1, row), shown.cell(2, row)}, false, shown.foreign(row)});
  panel_.gridPlayListSongs->setRows(std::move(rows));
  open(name);
}

void PlaylistEditor::open(const QString& name) {
  name_ = name;
  Grid& list = *panel_.gridPlayListSongs;
  list.columns = {{}, {QString(), 0, true}};
  list.fontSize = uses_.state.gGridFontSize;
  list.rowHeight = uses_.state.gGridHeight;
  dressControl(list, uses_.palette);
  list.emptyText = u"Open an album or all songs, choose a song and press Add song"_s;
  uses_.state.playListEditing = true;
  uses_.state.playListChanged = false;
  show();
  rowsChanged();
  uses_.browsing.cmdTop_Click(givesSongs(uses_.state.gridMode) ? PageCommand::AllSongs
                                                               : PageCommand::Artists);
}

std::vector<Control*> PlaylistEditor::covered() {
  return {panel_.coverArt,        panel_.lblMusicType[0], panel_.lblMusicType[1],
          panel_.lblMusicPlay[0], panel_.lblMusicPlay[1], panel_.cmdFavoriateAdd,
          panel_.cmdPlayLists};
}

void PlaylistEditor::setOwn(bool visible) {
  panel_.gridPlayListSongs->visible = visible;
  panel_.framSongEdit->visible = visible;
  panel_.playlistslider->visible = visible;
  panel_.cmdOneSong[2]->visible = panel_.cmdOneSong[3]->visible = visible;
}

// The library's list shares the room with the one being edited; what stands elsewhere on the tab
// leaves the form.
void PlaylistEditor::makeRoom() {
  const auto move = [this](Control* control, Rect to) {
    moved_.emplace_back(control, control->rect());
    control->rect = to;
  };
  for (Control* control : covered()) {
    Rect away = control->rect();
    away.left = kOffTheForm;
    move(control, away);
  }
  const Rect own = panel_.gridPlayListSongs->rect();
  const auto beside = [&](Rect place) {
    place.left = own.left - kGap - place.width;
    return place;
  };
  const Rect slider = beside(panel_.playlistslider->rect());
  for (Grid* list : panel_.grid) {
    if (list->index > static_cast<int>(MusicList::Favourites)) continue;
    Rect narrow = list->rect();
    narrow.width = slider.left - kGap - narrow.left;
    move(list, narrow);
  }
  panel_.VscrollAllSongs->rect = slider;
  panel_.cmdOneSong[0]->rect = beside(panel_.cmdOneSong[2]->rect());
  panel_.cmdOneSong[1]->rect = beside(panel_.cmdOneSong[3]->rect());
  Grid& allSongs = *panel_.grid[at(MusicList::AllSongs)];
  wideColumns_ = allSongs.columns();
  std::vector<Grid::Column> narrow = wideColumns_;
  for (size_t column = 1; column < narrow.size(); ++column) narrow[column].hidden = true;
  allSongs.columns = narrow;
}

void PlaylistEditor::show() {
  if (moved_.empty()) makeRoom();
  for (Image* mode : panel_.optMode) mode->visible = false;
  setOwn(true);
  showCommands(uses_.state.gridMode);
}

void PlaylistEditor::hide() {
  search_.close();
  setOwn(false);
  for (const auto& [control, place] : moved_) control->rect = place;
  if (!moved_.empty()) panel_.grid[at(MusicList::AllSongs)]->columns = wideColumns_;
  moved_.clear();
  uses_.main.positionControl(*panel_.VscrollAllSongs);
  uses_.main.positionControl(*panel_.cmdOneSong[0]);
  uses_.main.positionControl(*panel_.cmdOneSong[1]);
}

void PlaylistEditor::keyboardShown(int keyboardTop) {
  const int top = search_.keyboardShown(keyboardTop);
  const bool up = keyboardTop > 0;
  Grid& list = *panel_.gridPlayListSongs;
  if (!tall_) tall_ = list.rect();
  Rect place = *tall_;
  if (up) {
    place.top = top;
    place.width = panel_.playlistslider->rect().right() - place.left;
    place.height = keyboardTop - kGap - top;
  } else {
    tall_.reset();
  }
  list.rect = place;
  for (Image* command : panel_.cmdTop)
    command->visible = !up || command->rect().bottom() < keyboardTop;
  const bool beside = !up && panel_.gridPlayListSongs->visible();
  panel_.playlistslider->visible = beside;
  panel_.cmdOneSong[2]->visible = panel_.cmdOneSong[3]->visible = beside;
}

void PlaylistEditor::close() {
  hide();
  for (Image* mode : panel_.optMode) mode->visible = true;
  uses_.state.playListEditing = uses_.state.playListChanged = false;
}

void PlaylistEditor::cancel() {
  close();
  uses_.browsing.showGrid(uses_.state.gridMode);
}

void PlaylistEditor::listShown(MusicList list) {
  search_.close();
  showCommands(list);
}

void PlaylistEditor::showCommands(MusicList list) {
  panel_.cmdPlayListCommands[AddSong]->enabled = givesSongs(list) && !search_.shown();
  panel_.cmdPlayListCommands[AddAlbum]->enabled = list == MusicList::AlbumSongs && !search_.shown();
}

void PlaylistEditor::search() {
  if (search_.shown()) {
    search_.close();
    uses_.browsing.showGrid(uses_.state.gridMode);
    return;
  }
  for (Grid* grid : panel_.grid) grid->visible = false;
  uses_.paging.hide();
  search_.open();
  showCommands(uses_.state.gridMode);
}

void PlaylistEditor::cmdPlayListCommands_Click(int index) {
  if (uses_.screen.busy() || !uses_.state.playListEditing) return;
  const Busy busy(uses_.screen, Screen::Custom);
  const MusicList list = uses_.state.gridMode;
  switch (static_cast<Command>(index)) {
    case Delete:
      removeRow();
      break;
    case Up:
      moveRow(-1);
      break;
    case Down:
      moveRow(+1);
      break;
    case AddSong:
      if (givesSongs(list)) addFrom(list, uses_.browsing.shownGrid().row());
      break;
    case AddAlbum:
      if (list != MusicList::AlbumSongs) break;
      for (int row = 1; row <= uses_.browsing.page(list).grid.maxRows(); ++row) {
        addFrom(list, row);
        uses_.pump.breathe();
      }
      break;
  }
  rowsChanged();
}

void PlaylistEditor::removeRow() {
  Grid& list = *panel_.gridPlayListSongs;
  if (list.maxRows() == 0) return;
  const int row = list.row();
  list.deleteRow(row);
  uses_.state.playListChanged = true;
  if (list.maxRows() > 0) list.SetActiveCell(1, std::min(row, list.maxRows()));
}

void PlaylistEditor::moveRow(int by) {
  Grid& list = *panel_.gridPlayListSongs;
  const int from = list.row(), to = from + by;
  RowTable* rows = list.table();
  if (!rows || !rows->has(from) || !rows->has(to)) return;
  std::swap(rows->at(from), rows->at(to));
  uses_.state.playListChanged = true;
  list.rowsChanged();
  list.SetActiveCell(1, to);
}

void PlaylistEditor::addFrom(MusicList list, int row) {
  if (const auto song = uses_.browsing.page(list).songAt(row)) addSong(song->Title, song->Path);
}

void PlaylistEditor::addSong(const QString& title, const QString& path) {
  Grid& list = *panel_.gridPlayListSongs;
  if (!list.table() || path.isEmpty()) return;
  list.table()->rows.push_back({{songTitleShown(title), path}});
  uses_.state.playListChanged = true;
  list.rowsChanged();
  list.SetActiveCell(1, list.maxRows());
  rowsChanged();
}

void PlaylistEditor::rowsChanged() {
  Grid& list = *panel_.gridPlayListSongs;
  const int count = list.maxRows();
  list.header = name_ + u"  ("_s + QString::number(count) + u')';
  Slider& slider = *panel_.playlistslider;
  slider.minimum = 1;
  slider.maximum = std::max(count, 1);
  slider.value = std::max(list.row(), 1);
  for (const Command command : {Delete, Up, Down})
    panel_.cmdPlayListCommands[command]->enabled = count > (command == Delete ? 0 : 1);
}

void PlaylistEditor::cmdOneSong_Press(int index) {
  if (index < 2 || !uses_.state.playListEditing) return;
  Grid& list = *panel_.gridPlayListSongs;
  const int to = list.row() + (index == 2 ? -1 : 1);
  if (to >= 1 && to <= list.maxRows()) gridPlayListSongs_Click(to);
}

void PlaylistEditor::playlistslider_Change() {
  panel_.gridPlayListSongs->SetActiveCell(
      1, static_cast<int>(std::lround(panel_.playlistslider->value())));
}

void PlaylistEditor::gridPlayListSongs_Click(int row) {
  if (row < 1) return;
  panel_.gridPlayListSongs->SetActiveCell(1, row);
  panel_.playlistslider->value = row;
}

void PlaylistEditor::cmdPlayListChoices_Click(int index) {
  if (uses_.screen.busy() || !uses_.state.playListEditing) return;
  hide();
  for (Image* mode : panel_.optMode) mode->visible = true;
  uses_.browsing.showGrid(uses_.state.gridMode);
  if (index == 0 || save()) {
    close();
    if (index == 1) uses_.browsing.cmdTop_Click(PageCommand::Playlists);
    return;
  }
  show();  // nothing that was put together is lost with a save that did not come about
}

QString PlaylistEditor::askName() {
  for (;;) {
    const QString name = uses_.messages.ask(u"Enter NEW Playlist name"_s).trimmed();
    if (name.isEmpty()) return {};
    if (const QString fault = Playlists::nameFault(name); !fault.isEmpty()) {
      uses_.messages.say(fault);
      continue;
    }
    const QString path = uses_.playlists.pathOf(name);
    if (!uses_.playlists.taken(path) ||
        uses_.messages.confirm(u"There is a playlist "_s + name + u" already. Replace it?"_s))
      return path;
  }
}

bool PlaylistEditor::save() {
  QStringList paths;
  const Grid& list = *panel_.gridPlayListSongs;
  for (int row = 1; row <= list.maxRows(); ++row) paths << list.cell(2, row);
  for (;;) {
    if (uses_.state.playListIsNew) uses_.state.playListFile = askName();
    if (uses_.state.playListFile.isEmpty()) return false;
    QString error;
    bool saved;
    {
      const Busy busy(uses_.screen, Screen::Custom);
      saved = uses_.playlists.save(uses_.state.playListFile, paths, &error);
    }
    if (saved) {
      uses_.state.playListIsNew = false;
      return true;
    }
    uses_.messages.say(u"File name is not good, try another.\n"_s + error);
    if (!uses_.state.playListIsNew) return false;
  }
}

}  // namespace korvane
