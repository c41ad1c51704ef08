// What each music list shows.
#include "library/lists/browsing.h"

namespace korvane {

std::unique_ptr<MusicListPage> Browsing::makePage(MusicList list) {
  Grid& grid = *panel_.grid[at(list)];
  switch (list) {
    case MusicList::AlbumSongs:
    case MusicList::Favourites:
      return std::make_unique<SongListPage>(grid, list);
    case MusicList::PlaylistSongs:
      return std::make_unique<PlaylistPage>(grid, uses_.playlists);
    case MusicList::AllSongs:
      return std::make_unique<AllSongsPage>(grid);
    case MusicList::Artists:
    case MusicList::ArtistAlbums:
    case MusicList::Albums:
    case MusicList::Playlists:
    case MusicList::DiscTracks:
    case MusicList::FmStations:
    case MusicList::AmStations:
      break;
  }
  return std::make_unique<MusicListPage>(grid, list);
}

SongListPage& Browsing::songPage(MusicList list) const {
  return static_cast<SongListPage&>(page(list));
}

AllSongsPage& Browsing::allSongs() const {
  return static_cast<AllSongsPage&>(page(MusicList::AllSongs));
}

bool Browsing::looksOnly() const {
  return uses_.state.jukeboxMode || uses_.settings.flag(key::KeepList);
}

void Browsing::setUpGrids() {
  for (const auto& each : pages_) each->setUp(uses_.palette, uses_.state);
}

void Browsing::fillArtists() {
  page(MusicList::Artists).fill(uses_.palette, uses_.database.getArtists());
}

void Browsing::fillAlbums() {
  page(MusicList::Albums).fill(uses_.palette, uses_.database.getAllAlbums());
}

void Browsing::fillSongs() {
  allSongs().show(uses_.palette, uses_.database.getAllSongs());
  uses_.paging.follow(allSongs().grid);
  if (songs_) songs_->allSongsMoved();
}

void Browsing::fillPlaySongs(const QList<PlaySong>& songs) {
  uses_.database.resetPlaySongs();
  for (const PlaySong& song : songs) uses_.database.addPlaySong(song);
}

void Browsing::mark(MusicList list) {
  if (const auto command = page(list).command()) uses_.main.markTop(static_cast<int>(*command));
}

void Browsing::openFavourites() {
  SongListPage& favourites = songPage(MusicList::Favourites);
  if (!uses_.state.gFavoritesLoaded) {
    favourites.show(uses_.palette, uses_.database.getFavorites());
    uses_.state.gFavoritesLoaded = true;
  }
  if (!looksOnly()) fillPlaySongs(favourites.songs());
  showGrid(MusicList::Favourites);
}

void Browsing::openArtist(const QString& artist) {
  std::vector<RowTable::Row> rows;
  for (const QString& album : uses_.database.getArtistAlbums(artist)) rows.push_back({{album}});
  artist_ = artist;
  page(MusicList::ArtistAlbums).grid.header = artist;
  page(MusicList::ArtistAlbums).fill(uses_.palette, std::move(rows));
  panel_.cmdTop[at(PageCommand::Artists)]->tag = u"1"_s;
  showGrid(MusicList::ArtistAlbums);
}

void Browsing::openAlbum(const QString& artist, const QString& album, MusicList from) {
  SongListPage& songs = songPage(MusicList::AlbumSongs);
  songs.show(uses_.palette, uses_.database.getArtistOrAlbumSongs(artist, album));
  songs.grid.header = artist + u" - "_s + album;
  backGrid_ = from;
  showGrid(MusicList::AlbumSongs);
}

void Browsing::openPlaylist(const QString& name, const QString& path) {
  QString error;
  const bool read = uses_.playlists.getPlayListSongs(path, &error);
  if (!looksOnly()) uses_.playlists.useOpened();
  const int songs = uses_.playlists.openedCount();
  if (songs == 0) {
    panel_.lblCurrentPlayList->caption = QString();
    uses_.messages.say(read ? u"No songs in the playlist to use!! "_s : error);
    return;
  }
  MusicListPage& playlist = page(MusicList::PlaylistSongs);
  playlist.fill(uses_.palette, uses_.playlists.openedRows());
  playlist.grid.header = name;
  showGrid(MusicList::PlaylistSongs);
  panel_.lblCurrentPlayList->caption =
      u"Play List = "_s + name + u"  ("_s + QString::number(songs) + u')';
}

bool Browsing::shows(MusicList list, int row, const PlaySong& song) const {
  const std::optional<PlaySong> shown = page(list).songAt(row);
  return shown && shown->Path == song.Path;
}

std::optional<PlaySong> Browsing::selectedSong() const {
  const MusicListPage& shown = page(uses_.state.gridMode);
  return shown.grid.visible() ? shown.songAt(shown.grid.row()) : std::nullopt;
}

void Browsing::showMarked() {
  uses_.state.gFavoritesLoaded = false;
  forgetMarks();
  if (uses_.state.gridMode == MusicList::AlbumSongs)
    songPage(MusicList::AlbumSongs).mark(shownGrid().row());
}

void Browsing::forgetMarks() {
  if (!allSongs().rows()) return;
  allSongs().rows()->forget();
  allSongs().grid.rowsChanged();
}

void Browsing::showRunning(MusicList list, int row, const QList<PlaySong>& songs,
                           const QString& caption) {
  const PlaySong song = songs.value(std::max(row, 1) - 1);
  if (list == MusicList::AlbumSongs) return showSongInAlbum(song.Artist, song.Album, song.Title);
  uses_.main.ResetSelections();
  if (list == MusicList::PlaylistSongs) {
    uses_.playlists.reopen(songs);
    page(list).fill(uses_.palette, uses_.playlists.openedRows());
    page(list).grid.header = caption.section(u" = "_s, 1).section(u"  ("_s, 0, -2);
  }
  if (list == MusicList::Favourites)
    songPage(list).show(uses_.palette, uses_.database.getFavorites());
  showGrid(list);
  setActive(list, row);
  mark(list);
}

void Browsing::showSongInAlbum(const QString& artist, const QString& album, const QString& title) {
  openAlbum(artist, album, MusicList::Artists);
  artist_ = artist;
  const QString shown = songTitleShown(title);
  const Grid& songs = page(MusicList::AlbumSongs).grid;
  for (int row = 1; row <= songs.maxRows(); ++row)
    if (songs.cell(1, row).compare(shown, Qt::CaseInsensitive) == 0) {
      setActive(MusicList::AlbumSongs, row);
      break;
    }
  uses_.main.ResetSelections();
  mark(MusicList::AlbumSongs);
}

bool Browsing::openAt(const QString& path) {
  const std::optional<Song> song = uses_.database.getSongAtPath(path);
  if (!song) return false;
  Grid& artists = page(MusicList::Artists).grid;
  if (const int row = artists.SearchCol(1, 1, song->Artist); row > 0) {
    artists.SetActiveCell(1, row);
    openArtist(song->Artist);
  }
  showSongInAlbum(song->Artist, song->album, song->SongTitle);
  return true;
}

void Browsing::resetPlayListView() {
  panel_.lblCurrentPlayList->caption = QString();
  if (uses_.state.gPlayMode == PlayMode::Stopped)
    panel_.lblCurrentPlay->caption = u"No Play list selected"_s;
  songPage(MusicList::AlbumSongs).clear();
  for (const MusicList list : {MusicList::ArtistAlbums, MusicList::PlaylistSongs}) {
    page(list).grid.header = QString();
    page(list).grid.clear();
  }
  uses_.main.ResetSelections();
  if (uses_.state.gridMode == MusicList::DiscTracks) return;  // the disc is the list then
  if (shownGrid().visible())
    showGrid(MusicList::Artists);
  else
    uses_.state.gridMode = MusicList::Artists;
  panel_.cmdTop[at(PageCommand::Artists)]->tag = u"1"_s;
}

}  // namespace korvane
