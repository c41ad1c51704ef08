// What each music list shows.
#include "library/lists/browsing.h"

namespace korvane {
namespace {

RowTable::Row songRow(const Song& song) {
  return {{songTitleShown(song.SongTitle), song.album, song.Artist, song.year, song.SongPath},
          song.isFavorite(),
          false};
}

std::vector<RowTable::Row> songRows(const QList<Song>& songs) {
  std::vector<RowTable::Row> rows;
  rows.reserve(static_cast<size_t>(songs.size()));
  for (const Song& song : songs) rows.push_back(songRow(song));
  return rows;
}

using Columns = std::vector<Grid::Column>;

Columns columnsOf(int grid) {
  static const Grid::Column hidden{QString(), 0, true}, shown{};
  switch (grid) {
    case 1:
      return {shown, hidden, hidden, hidden, hidden};
    case 4:
      return {{QString(), 500}, hidden};
    case 5:
      return {{QString(), 58}, {QString(), 42}, hidden, hidden};
    case 6:
      return {shown, hidden, hidden, hidden};
    case 8:
      return {{QString(), 84}, hidden, hidden,
              hidden,          hidden, {QString(), 16, false, Grid::CellKind::Button}};
    default:
      return {shown, hidden};
  }
}

}  // namespace

void Browsing::setUpGrids() {
  static constexpr const char* nothing[] = {
      "No artists yet. Setup, Digital Music Setup brings music in.",
      "No songs here",
      "No albums here",
      "No songs in the playlist",
      "No albums yet. Setup, Digital Music Setup brings music in.",
      "No songs yet. Setup, Digital Music Setup brings music in.",
      "No playlists yet. Press Lists, then Create.",
      "No CD in the drive",
      "No favourites yet",
      "No stations",
      "No stations"};
  for (Grid* grid : panel_.grid) {
    const int index = grid->index;
    grid->columns = columnsOf(index);
    grid->fontSize = uses_.state.gGridFontSize;
    grid->rowHeight = uses_.state.gGridHeight;
    grid->colours = uses_.palette.grid(u"MUSICGRID", u"MUSICGridSelected", u"MUSICGridTopLine");
    grid->emptyText = QString::fromLatin1(nothing[index]);
  }
  panel_.grid[6]->colours = uses_.palette.grid(u"plgrid", u"plgridSelect", u"MUSICGridTopLine");
  panel_.grid[3]->colours =
      uses_.palette.grid(u"PlayListGrid", u"PlayListGridSelected", u"MUSICGridTopLine");
}

void Browsing::fillArtists() {
  panel_.grid[0]->setRows(uses_.database.getArtists());
}

void Browsing::fillAlbums() {
  panel_.grid[4]->setRows(uses_.database.getAllAlbums());
}

void Browsing::fillSongs() {
  rsMain_ = uses_.database.getAllSongs();
  panel_.grid[5]->tag = QString::number(rsMain_->rowCount());
  panel_.grid[5]->setRows(rsMain_);
}

void Browsing::getFavorites(bool fill) {
  const QList<Song> songs = uses_.database.getFavorites();
  fillPlaySongs(songs);
  if (!fill) return;
  favouriteSongs_ = songs;
  std::vector<RowTable::Row> rows = songRows(songs);
  for (RowTable::Row& row : rows) {
    row.cells.append(u"DEL"_s);
    row.emphasised = false;
  }
  panel_.grid[8]->setRows(std::move(rows));
  uses_.state.gFavoritesLoaded = true;
}

void Browsing::getArtistOrAlbumSongs(const QString& artist, const QString& album) {
  albumSongs_ = uses_.database.getArtistOrAlbumSongs(artist, album);
  panel_.grid[1]->header = artist + u" - "_s + album;
  panel_.grid[1]->setRows(songRows(albumSongs_));
}

void Browsing::fillPlaySongs(const QList<Song>& songs) {
  uses_.database.resetPlaySongs();
  for (const Song& song : songs)
    uses_.database.addPlaySong(
        {song.SongTitle, song.Artist, song.album, song.Comment, song.year, song.SongPath});
}

void Browsing::openArtist(int row) {
  artist_ = panel_.grid[0]->cell(1, row);
  std::vector<RowTable::Row> rows;
  for (const QString& album : uses_.database.getArtistAlbums(artist_))
    rows.push_back({{album}, false, false});
  panel_.grid[2]->header = artist_;
  panel_.grid[2]->setRows(std::move(rows));
  panel_.cmdTop[0]->tag = u"1"_s;
  showGrid(2);
}

std::optional<PlaySong> Browsing::selectedSong() const {
  const int list = uses_.state.gridMode;
  const Grid& grid = *panel_.grid[static_cast<size_t>(list)];
  const int row = grid.row();
  if (!grid.visible() || row < 1 || row > grid.maxRows()) return {};
  if (list == 3 || list == 5) return songAt(list, row);
  if (list != 1 && list != 8) return {};
  const Song song = (list == 1 ? albumSongs_ : favouriteSongs_).value(row - 1);
  return PlaySong{song.SongTitle, song.Artist, song.album, song.Comment, song.year, song.SongPath};
}

void Browsing::showRunning(int list, int row, const QList<PlaySong>& songs,
                           const QString& caption) {
  const PlaySong song = songs.value(std::max(row, 1) - 1);
  if (list == 1) {
    showSongInAlbum(song.Artist, song.Album, song.Title);
    return;
  }
  uses_.main.ResetSelections();
  if (list == 3) {
    uses_.playlists.reopen(songs, *panel_.grid[3]);
    panel_.grid[3]->header = caption.section(u" = "_s, 1).section(u"  ("_s, 0, -2);
  }
  if (list == 8) getFavorites(true);
  showGrid(list);
  setActive(list, row);
  uses_.main.markTop(list == 3 ? 2 : list == 5 ? 3 : 6);
}

void Browsing::showMarked() {
  uses_.state.gFavoritesLoaded = false;
  forgetMarks();
  Grid& grid = *panel_.grid[1];
  if (uses_.state.gridMode != 1 || !grid.table() || !grid.table()->has(grid.row())) return;
  grid.table()->at(grid.row()).emphasised = true;
  grid.setCell(4, grid.row(), u"-1"_s);
}

void Browsing::forgetMarks() {
  if (!rsMain_) return;
  rsMain_->forget();
  panel_.grid[5]->rowsChanged();
}

void Browsing::openPlaylist(const QString& name, const QString& path) {
  QString error;
  Grid& grid = *panel_.grid[3];
  const bool read = uses_.playlists.getPlayListSongs(path, &grid, &error);
  const int songs = uses_.playlists.openedCount();
  if (songs == 0) {
    panel_.lblCurrentPlayList->caption = QString();
    uses_.messages.say(read ? u"No songs in the playlist to use!! "_s : error);
    return;
  }
  grid.header = name;
  showGrid(3);
  panel_.lblCurrentPlayList->caption =
      u"Play List = "_s + name + u"  ("_s + QString::number(songs) + u')';
}

void Browsing::openAlbum(const QString& artist, const QString& album, int from) {
  getArtistOrAlbumSongs(artist, album);
  backGrid_ = from;
  showGrid(1);
}

void Browsing::showSongInAlbum(const QString& artist, const QString& album, const QString& title) {
  openAlbum(artist, album, 0);
  artist_ = artist;
  const QString shown = songTitleShown(title);
  for (int row = 1; row <= panel_.grid[1]->maxRows(); ++row)
    if (panel_.grid[1]->cell(1, row).compare(shown, Qt::CaseInsensitive) == 0) {
      setActive(1, row);
      break;
    }
  uses_.main.ResetSelections();
  uses_.main.markTop(0);
}

void Browsing::resetPlayListView() {
  panel_.lblCurrentPlayList->caption = QString();
  for (const size_t list : {size_t{1}, size_t{2}, size_t{3}}) {
    panel_.grid[list]->header = QString();
    panel_.grid[list]->clear();
  }
  albumSongs_.clear();
  uses_.main.ResetSelections();
  uses_.state.gridMode = 0;
  panel_.cmdTop[0]->tag = u"1"_s;
}

bool Browsing::openAt(const QString& path) {
  const std::optional<Song> song = uses_.database.getSongAtPath(path);
  if (!song) return false;
  showSongInAlbum(song->Artist, song->album, song->SongTitle);
  const int artistRow = panel_.grid[0]->SearchCol(1, 1, song->Artist);
  if (artistRow > 0) {
    panel_.grid[0]->SetActiveCell(1, artistRow);
    std::vector<RowTable::Row> rows;
    for (const QString& album : uses_.database.getArtistAlbums(song->Artist))
      rows.push_back({{album}, false, false});
    panel_.grid[2]->header = song->Artist;
    panel_.grid[2]->setRows(std::move(rows));
  }
  return true;
}

}  // namespace korvane
