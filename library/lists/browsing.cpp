#include "library/lists/browsing.h"

#include "core/dressing.h"

namespace korvane {
namespace {

constexpr int kForgetTyped = 2000;  // ms
constexpr int kDelColumn = 6;       // of the favourites

}  // namespace

Browsing::Browsing(Form& form, Uses uses) : uses_(uses), panel_(form) {
  for (size_t i = 0; i < kMusicLists; ++i) pages_[i] = makePage(static_cast<MusicList>(i));
  panel_.KeyboardTimer->interval = kForgetTyped;
}

void Browsing::showGrid(MusicList list) {
  Grid& grid = page(list).grid;
  for (Grid* other : panel_.grid)
    if (other != &grid) other->visible = false;
  if (!uses_.state.jukeboxMode || list != MusicList::Playlists) dressControl(grid, uses_.palette);
  grid.visible = true;
  uses_.state.gridMode = list;
  uses_.paging.show(grid);
  if (uses_.state.playListEditing && editor_) editor_->listShown(list);
}

// The lists that songs are taken from stay open to the editor; the others end it.
bool Browsing::leaveEditing(PageCommand command) {
  if (!uses_.state.playListEditing) return true;
  if (command != PageCommand::Playlists && command != PageCommand::Favourites) return true;
  if (!uses_.messages.confirm(
          u" This will cancel any play list changes, do you want to continue? "_s))
    return false;
  if (editor_) editor_->cancel();
  return true;
}

void Browsing::cmdTop_Click(PageCommand command) {
  using enum PageCommand;
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  if (!leaveEditing(command)) return;
  if (uses_.state.playListEditing && editor_ &&
      (command == Search || (command == Back && editor_->searching())))
    return editor_->search();
  if (command == Back) return goBack();
  if (command == Search) return search();

  uses_.main.ResetSelections();
  if (lastTop_ == Playlists && uses_.state.jukeboxMode) panel_.repeat->visible = true;
  switch (command) {
    case Artists:
      showGrid(MusicList::Artists);
      break;
    case Albums:
      if (page(MusicList::Albums).grid.maxRows() < 2) fillAlbums();
      showGrid(MusicList::Albums);
      break;
    case Playlists:
      if (!uses_.state.jukeboxMode) {
        page(MusicList::Playlists).setUp(uses_.palette, uses_.state);  // the queue looks otherwise
        uses_.playlists.PlayListSetupFiles(page(MusicList::Playlists).grid);
      }
      showGrid(MusicList::Playlists);
      break;
    case AllSongs:
      if (!allSongs().rows()) fillSongs();
      showGrid(MusicList::AllSongs);
      break;
    case Favourites:
      openFavourites();
      break;
    case Search:
    case Back:
      break;
  }
  uses_.main.markTop(static_cast<int>(command));
  lastTop_ = command;
}

void Browsing::goBack() {
  using enum MusicList;
  MusicList to = Artists;
  switch (uses_.state.gridMode) {
    case AlbumSongs: {
      const int albums = page(ArtistAlbums).grid.maxRows();
      to = backGrid_ == Albums ? Albums : albums > 1 ? ArtistAlbums : Artists;
      break;
    }
    case ArtistAlbums:
      break;
    case PlaylistSongs:
      to = Playlists;
      break;
    default:
      return;
  }
  uses_.main.ResetSelections();
  showGrid(to);
  mark(to);
}

void Browsing::search() {
  constexpr int kSearch = static_cast<int>(PageCommand::Search);
  Image* image = panel_.cmdTop[kSearch];
  image->setPicture(u"Music"_s, uses_.main.topPicture(kSearch, true));
  const QString value = uses_.messages.ask(u"Enter search value and hit enter"_s);
  if (!value.isEmpty()) lookUp(value);
  image->setPicture(u"Music"_s, uses_.main.topPicture(kSearch, false));
}

void Browsing::lookUp(const QString& text) {
  const MusicList list = uses_.state.gridMode;
  const Grid& grid = page(list).grid;
  if (grid.maxRows() == 0) return;
  const int row = list == MusicList::AllSongs
                      ? std::min(allSongs().rows()->Find(text), grid.maxRows())
                      : grid.SearchCol(1, 1, text);
  if (row > 0) setActive(list, row);
}

void Browsing::setActive(MusicList list, int row) {
  page(list).grid.SetActiveCell(1, row);
  uses_.paging.follow(page(list).grid);
}

void Browsing::Grid_Click(MusicList list, int, int row) {
  if (uses_.screen.busy()) return;
  if (row == 0) return cmdTop_Click(PageCommand::Back);
  const Busy busy(uses_.screen, Screen::Custom);
  Grid& grid = page(list).grid;
  if (row > grid.maxRows()) return;
  grid.row = row;
  switch (list) {
    case MusicList::Artists:
      openArtist(grid.cell(1, row));
      break;
    case MusicList::ArtistAlbums:
      openAlbum(artist_, grid.cell(1, row), MusicList::Artists);
      break;
    case MusicList::Albums:
      openAlbum(grid.cell(2, row), grid.cell(1, row), MusicList::Albums);
      break;
    case MusicList::Playlists:
      if (!uses_.state.jukeboxMode) openPlaylist(grid.cell(1, row), grid.cell(2, row));
      break;
    default:
      uses_.paging.follow(grid);
  }
}

void Browsing::Grid_DblClick(MusicList list, int, int row) {
  if (uses_.screen.busy() || row < 1) return;
  const Busy busy(uses_.screen, Screen::Custom);
  activate(list, row);
}

void Browsing::playShown() {
  const MusicListPage& shown = page(uses_.state.gridMode);
  const bool plays = shown.holdsSongs() || shown.list == MusicList::DiscTracks;
  if (plays && shown.grid.visible() && shown.grid.maxRows() > 0)
    activate(shown.list, std::max(shown.grid.row(), 1));
}

void Browsing::activate(MusicList list, int row) {
  MusicListPage& from = page(list);
  if (row > from.grid.maxRows()) return;
  from.grid.row = row;
  uses_.paging.follow(from.grid);
  try {
    if (list == MusicList::DiscTracks) return songs_->playDiscRow(row);
    if (!uses_.state.jukeboxMode) return play(from, row);
    if (auto song = from.songAt(row)) {
      song->Title = songTitleShown(song->Title);
      songs_->jukeboxAdd(*song);
    }
  } catch (const std::exception& failure) {
    uses_.box.show(u"Cannot play selection \n"_s + QString::fromUtf8(failure.what()));
    songs_->playFailed();
  }
}

void Browsing::play(MusicListPage& from, int row) {
  if (!from.holdsSongs()) return;
  if (from.list == MusicList::AlbumSongs || from.list == MusicList::Favourites)
    panel_.lblCurrentPlayList->caption = QString();
  songs_->startFrom(from.list);
  if (from.list == MusicList::PlaylistSongs)
    uses_.playlists.useOpened();
  else if (from.list != MusicList::AllSongs)
    fillPlaySongs(from.songs());
  songs_->playSongRecord(row);
}

void Browsing::Grid_ButtonClicked(MusicList list, int column, int row) {
  if (list != MusicList::Favourites || column != kDelColumn || uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);
  SongListPage& favourites = songPage(list);
  const std::optional<PlaySong> song = favourites.songAt(row);
  if (!song) return;
  uses_.database.clearFavorite(song->Artist, song->Album, song->Title);
  favourites.take(row);
  forgetMarks();
  if (uses_.database.rsPlaySongs.at(row).Path == song->Path) uses_.database.removePlaySong(row);
  showGrid(list);
}

void Browsing::Form_KeyDown(int key) {
  enum { Enter = 13, PageUp = 33, PageDown = 34, End = 35, Home = 36, Up = 38, Down = 40 };
  const MusicList list = uses_.state.gridMode;
  Grid& grid = page(list).grid;
  if (uses_.screen.busy() || !grid.visible() || grid.maxRows() == 0) return;
  constexpr int kPage = 6;
  const auto to = [&](int row) { setActive(list, std::clamp(row, 1, grid.maxRows())); };
  const int row = grid.row();
  switch (key) {
    case Up:
      return to(row - 1);
    case Down:
      return to(row + 1);
    case PageUp:
      return to(row - kPage);
    case PageDown:
      return to(row + kPage);
    case Home:
      return to(1);
    case End:
      return to(grid.maxRows());
    case Enter:
      Grid_Click(list, 1, row);
      if (uses_.state.gridMode == list) Grid_DblClick(list, 1, row);
      return;
    default:
      return;
  }
}

void Browsing::Form_KeyPress(const QString& text) {
  if (uses_.screen.busy() || !shownGrid().visible() || text.isEmpty() || !text[0].isPrint()) return;
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
