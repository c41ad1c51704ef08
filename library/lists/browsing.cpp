#include "library/lists/browsing.h"

#include "core/dressing.h"

namespace korvane {
namespace {

enum Command { kArtists, kAlbums, kPlaylists, kAllSongs, kSearch, kBack, kFavourites };
constexpr int kForgetTyped = 2000;  // ms
constexpr int kRepeat = 120;        // ms between rows of a held button

QString firstLetter(const QString& text) {
  for (const QChar c : text)
    if (c.isLetterOrNumber()) return QString(c.toUpper());
  return {};
}

}  // namespace

Browsing::Browsing(Form& form, Uses uses) : uses_(uses), panel_(form) {
  panel_.KeyboardTimer->interval = kForgetTyped;
}

void Browsing::showGrid(int index) {
  Grid& grid = *panel_.grid[static_cast<size_t>(index)];
  for (Grid* other : panel_.grid)
    if (other != &grid) other->visible = false;
  if (!uses_.state.jukeboxMode || index != static_cast<int>(MusicList::Playlists))
    dressControl(grid, uses_.palette);
  grid.visible = true;
  uses_.state.gridMode = index;
  panel_.VscrollAllSongs->minimum = 1;
  panel_.VscrollAllSongs->maximum = std::max(grid.maxRows(), 1);
  panel_.VscrollAllSongs->value = std::max(grid.row(), 1);
  panel_.VscrollAllSongs->visible = true;
  panel_.cmdOneSong[0]->visible = panel_.cmdOneSong[1]->visible = true;
  if (uses_.state.playListEditing && editor_) editor_->listShown(index);
}

// The lists that songs are taken from stay open to the editor; the others end it.
bool Browsing::leaveEditing(int command) {
  if (!uses_.state.playListEditing) return true;
  if (command != kPlaylists && command != kFavourites) return true;
  if (!uses_.messages.confirm(
          u" This will cancel any play list changes, do you want to continue? "_s))
    return false;
  if (editor_) editor_->cancel();
  return true;
}

void Browsing::cmdTop_Click(int index) {
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  if (!leaveEditing(index)) return;
  if (uses_.state.playListEditing && editor_ &&
      (index == kSearch || (index == kBack && editor_->searching()))) {
    editor_->search();
    return;
  }
  const bool keepsMarks = index == kBack || index == kSearch || index == kPlaylists;
  if (!keepsMarks || (index == kPlaylists && uses_.state.jukeboxMode)) uses_.main.ResetSelections();
  if (lastTop_ == kPlaylists && uses_.state.jukeboxMode) panel_.cmdControls[5]->visible = true;

  switch (index) {
    case kArtists:
      showGrid(0);
      break;
    case kAlbums:
      if (panel_.grid[4]->maxRows() < 2) fillAlbums();
      showGrid(4);
      break;
    case kPlaylists:
      uses_.main.ResetSelections();
      if (!uses_.state.jukeboxMode) uses_.playlists.PlayListSetupFiles(*panel_.grid[6]);
      showGrid(6);
      break;
    case kAllSongs:
      if (!rsMain_) fillSongs();
      showGrid(5);
      break;
    case kFavourites:
      getFavorites(!uses_.state.gFavoritesLoaded);
      showGrid(8);
      break;
    case kBack:
      goBack();
      return;
    case kSearch:
      search();
      return;
    default:
      return;
  }
  uses_.main.markTop(index);
  lastTop_ = index;
}

void Browsing::goBack() {
  const int from = uses_.state.gridMode;
  if (from != 1 && from != 2 && from != 3) return;
  int to = 0;
  if (from == 1) to = backGrid_ == 4 ? 4 : panel_.grid[2]->maxRows() == 1 ? 0 : 2;
  if (from == 3) to = 6;
  if (to == 2 && panel_.grid[2]->maxRows() == 0) to = 0;
  uses_.main.ResetSelections();
  showGrid(to);
  uses_.main.markTop(to == 4 ? kAlbums : to == 6 ? kPlaylists : kArtists);
}

void Browsing::search() {
  Image* image = panel_.cmdTop[kSearch];
  image->setPicture(u"Music"_s, uses_.main.topPicture(kSearch, true));
  const QString value = uses_.messages.ask(u"Enter search value and hit enter"_s);
  if (!value.isEmpty()) lookUp(value);
  image->setPicture(u"Music"_s, uses_.main.topPicture(kSearch, false));
}

void Browsing::lookUp(const QString& text) {
  const int index = uses_.state.gridMode;
  Grid& grid = *panel_.grid[static_cast<size_t>(index)];
  if (grid.maxRows() == 0) return;
  if (index == 5) {
    setActive(5, std::min(rsMain_->Find(text), grid.maxRows()));
    return;
  }
  const int row = grid.SearchCol(1, 1, text);
  if (row > 0) setActive(index, row);
}

void Browsing::setActive(int index, int row) {
  panel_.grid[static_cast<size_t>(index)]->SetActiveCell(1, row);
  if (index == uses_.state.gridMode) panel_.VscrollAllSongs->value = row;
}

bool Browsing::moveActive(int index, int rows) {
  const Grid& grid = *panel_.grid[static_cast<size_t>(index)];
  const int to = grid.row() + rows;
  if (to < 1 || to > grid.maxRows()) return false;
  setActive(index, to);
  return true;
}

void Browsing::Grid_Click(int index, int, int row) {
  if (uses_.screen.busy()) return;
  if (row == 0) {
    cmdTop_Click(kBack);
    return;
  }
  const Busy busy(uses_.screen, Screen::Custom);
  Grid& grid = *panel_.grid[static_cast<size_t>(index)];
  if (row > grid.maxRows()) return;
  grid.row = row;
  switch (index) {
    case 0:
      openArtist(row);
      break;
    case 2:
      openAlbum(artist_, grid.cell(1, row), 0);
      break;
    case 4:
      openAlbum(grid.cell(2, row), grid.cell(1, row), 4);
      break;
    case 6:
      if (!uses_.state.jukeboxMode) openPlaylist(grid.cell(1, row), grid.cell(2, row));
      break;
    default:
      panel_.VscrollAllSongs->value = row;
  }
}

PlaySong Browsing::songAt(int index, int row) const {
  const Grid& grid = *panel_.grid[static_cast<size_t>(index)];
  if (index == 5)
    return {songTitleShown(grid.cell(1, row)),
            grid.cell(2, row),
            grid.cell(4, row),
            {},
            {},
            grid.cell(3, row)};
  if (index == 3) return uses_.playlists.openedSong(row);
  return {grid.cell(1, row), grid.cell(3, row), grid.cell(2, row), {}, {}, grid.cell(5, row)};
}

void Browsing::Grid_DblClick(int index, int, int row) {
  if (uses_.screen.busy() || row == 0) return;
  const Busy busy(uses_.screen, Screen::Custom);
  Grid& grid = *panel_.grid[static_cast<size_t>(index)];
  if (row > grid.maxRows()) return;
  grid.row = row;
  try {
    if (index == 7)
      songs_->playDiscRow(row);
    else if (uses_.state.jukeboxMode)
      addToJukebox(index, row);
    else
      play(index, row);
  } catch (const std::exception& failure) {
    uses_.box.show(u"Cannot play selection \n"_s + QString::fromUtf8(failure.what()));
    songs_->playFailed();
  }
}

void Browsing::addToJukebox(int index, int row) {
  if (index == 1 || index == 3 || index == 5 || index == 8) songs_->jukeboxAdd(songAt(index, row));
}

void Browsing::play(int index, int row) {
  switch (index) {
    case 1:
      panel_.lblCurrentPlayList->caption = QString();
      songs_->startFrom(index);
      fillPlaySongs(albumSongs_);
      break;
    case 3:
      songs_->startFrom(index);
      uses_.playlists.useOpened();
      break;
    case 5:
      panel_.VscrollAllSongs->value = row;
      songs_->startFrom(index);
      break;
    case 8:
      panel_.lblCurrentPlayList->caption = QString();
      songs_->startFrom(index);
      getFavorites(false);
      break;
    default:
      return;
  }
  songs_->playSongRecord(row);
}

void Browsing::Grid_ButtonClicked(int index, int column, int row) {
  if (index != 8 || column != 6 || uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  if (row < 1 || row > favouriteSongs_.size()) return;
  const Song song = favouriteSongs_.takeAt(row - 1);
  uses_.database.clearFavorite(song.Artist, song.album, song.SongTitle);
  forgetMarks();
  panel_.grid[8]->deleteRow(row);
  Recordset<PlaySong>& list = uses_.database.rsPlaySongs;
  if (list.at(row).Path == song.SongPath) {
    const int playing = list.AbsolutePosition();
    list.setAbsolutePosition(row);
    list.Delete();
    list.setAbsolutePosition(playing > row ? playing - 1 : playing);
  }
  showGrid(8);
}

void Browsing::VscrollAllSongs_Change() {
  const int row = static_cast<int>(std::lround(panel_.VscrollAllSongs->value()));
  panel_.grid[static_cast<size_t>(uses_.state.gridMode)]->SetActiveCell(1, row);
}

void Browsing::VscrollAllSongs_Scroll() {
  VscrollAllSongs_Change();
  const Grid& grid = *panel_.grid[static_cast<size_t>(uses_.state.gridMode)];
  panel_.VscrollAllSongs->bubble = firstLetter(grid.cell(1, grid.row()));
}

void Browsing::VscrollAllSongs_Release() {
  panel_.VscrollAllSongs->bubble = QString();
}

void Browsing::cmdOneSong_Press(int index) {
  if (index > 1) return;
  repeatRows_ = index == 0 ? -1 : 1;
  moveActive(uses_.state.gridMode, repeatRows_);
  panel_.RepeatTimer->interval = kRepeat;
  panel_.RepeatTimer->enabled = true;
}

void Browsing::cmdOneSong_Release() {
  repeatRows_ = 0;
  panel_.RepeatTimer->enabled = false;
}

void Browsing::RepeatTimer_Tick() {
  if (repeatRows_ == 0) return;
  if (!moveActive(uses_.state.gridMode, repeatRows_)) cmdOneSong_Release();
}

void Browsing::Form_KeyDown(int key) {
  enum { Enter = 13, PageUp = 33, PageDown = 34, End = 35, Home = 36, Up = 38, Down = 40 };
  const int index = uses_.state.gridMode;
  Grid& grid = *panel_.grid[static_cast<size_t>(index)];
  if (uses_.screen.busy() || !grid.visible() || grid.maxRows() == 0) return;
  constexpr int kPage = 6;
  const auto to = [&](int row) { setActive(index, std::clamp(row, 1, grid.maxRows())); };
  switch (key) {
    case Up:
      to(grid.row() - 1);
      break;
    case Down:
      to(grid.row() + 1);
      break;
    case PageUp:
      to(grid.row() - kPage);
      break;
    case PageDown:
      to(grid.row() + kPage);
      break;
    case Home:
      to(1);
      break;
    case End:
      to(grid.maxRows());
      break;
    case Enter: {
      const int row = grid.row();
      Grid_Click(index, 1, row);
      if (uses_.state.gridMode == index) Grid_DblClick(index, 1, row);
      break;
    }
    default:
      break;
  }
}

void Browsing::Form_KeyPress(const QString& text) {
  const Grid& grid = *panel_.grid[static_cast<size_t>(uses_.state.gridMode)];
  if (uses_.screen.busy() || !grid.visible() || text.isEmpty() || !text[0].isPrint()) return;
  typed_ += text;
  panel_.KeyboardTimer->enabled = false;  // counts anew from the last key
  panel_.KeyboardTimer->enabled = true;
  lookUp(typed_);
}

void Browsing::KeyboardTimer_Tick() {
  typed_.clear();
  panel_.KeyboardTimer->enabled = false;
}

}  // namespace korvane
