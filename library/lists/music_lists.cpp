#include "library/lists/music_lists.h"

#include "core/dressing.h"

namespace korvane {
namespace {

struct Kind {
  const char* nothing;  // said where there is no row
  std::optional<PageCommand> command;
};

const Kind& kindOf(MusicList list) {
  using enum PageCommand;
  static const Kind kinds[] = {
      {"No artists yet. Setup, Digital Music Setup brings music in.", Artists},
      {"No songs here", Artists},
      {"No albums here", Artists},
      {"No songs in the playlist", Playlists},
      {"No albums yet. Setup, Digital Music Setup brings music in.", Albums},
      {"No songs yet. Setup, Digital Music Setup brings music in.", AllSongs},
      {"No playlists yet. Press Lists, then Create.", Playlists},
      {"No CD in the drive", std::nullopt},
      {"No favourites yet", Favourites},
      {"No stations", std::nullopt},
      {"No stations", std::nullopt},
  };
  static_assert(std::size(kinds) == kMusicLists);
  return kinds[at(list)];
}

std::vector<Grid::Column> columnsOf(MusicList list) {
  static const Grid::Column hidden{QString(), 0, true}, shown{};
  switch (list) {
    case MusicList::AlbumSongs:
      return {shown, hidden, hidden, hidden, hidden};
    case MusicList::Albums:
      return {{QString(), 500}, hidden};
    case MusicList::AllSongs:
      return {{QString(), 58}, {QString(), 42}, hidden, hidden};
    case MusicList::Playlists:
      return {shown, hidden, hidden, hidden};
    case MusicList::Favourites:
      return {{QString(), 84}, hidden, hidden,
              hidden,          hidden, {QString(), 16, false, Grid::CellKind::Button}};
    case MusicList::Artists:
    case MusicList::ArtistAlbums:
    case MusicList::PlaylistSongs:
    case MusicList::DiscTracks:
    case MusicList::FmStations:
    case MusicList::AmStations:
      break;
  }
  return {shown, hidden};
}

}  // namespace

PlaySong asPlaySong(const Song& song) {
  return {song.SongTitle, song.Artist, song.album, song.Comment, song.year, song.SongPath};
}

void MusicListPage::setUp(const Palette& palette, const AppState& state) {
  grid.columns = columnsOf(list);
  grid.fontSize = state.gGridFontSize;
  grid.rowHeight = state.gGridHeight;
  dressControl(grid, palette);
  grid.emptyText = QString::fromLatin1(kindOf(list).nothing);
}

void MusicListPage::fill(const Palette& palette, std::shared_ptr<const RowSource> rows) {
  dressControl(grid, palette);
  grid.setRows(std::move(rows));
}

void MusicListPage::fill(const Palette& palette, std::vector<RowTable::Row> rows) {
  dressControl(grid, palette);
  grid.setRows(std::move(rows));
}

std::optional<PageCommand> MusicListPage::command() const {
  return kindOf(list).command;
}

std::optional<PlaySong> MusicListPage::songAt(int row) const {
  const QList<PlaySong> all = songs();
  if (row < 1 || row > all.size()) return {};
  return all[row - 1];
}

void SongListPage::show(const Palette& palette, QList<Song> shown) {
  std::vector<RowTable::Row> rows;
  rows.reserve(static_cast<size_t>(shown.size()));
  const bool favourites = list == MusicList::Favourites;
  for (const Song& song : std::as_const(shown)) {
    rows.push_back(
        {{songTitleShown(song.SongTitle), song.album, song.Artist, song.year, song.SongPath},
         song.isFavorite() && !favourites});
    if (favourites) rows.back().cells << u"DEL"_s;
  }
  songs_ = std::move(shown);
  fill(palette, std::move(rows));
}

void SongListPage::clear() {
  songs_.clear();
  grid.header = QString();
  grid.clear();
}

void SongListPage::mark(int row) {
  constexpr int kYear = 4;
  if (!grid.table() || !grid.table()->has(row)) return;
  grid.table()->at(row).emphasised = true;
  grid.setCell(kYear, row, u"-1"_s);
}

Song SongListPage::take(int row) {
  grid.deleteRow(row);
  return songs_.takeAt(row - 1);
}

QList<PlaySong> SongListPage::songs() const {
  QList<PlaySong> all;
  all.reserve(songs_.size());
  for (const Song& song : songs_) all << asPlaySong(song);
  return all;
}

std::optional<PlaySong> SongListPage::songAt(int row) const {
  if (row < 1 || row > songs_.size()) return {};
  return asPlaySong(songs_[row - 1]);
}

void AllSongsPage::show(const Palette& palette, std::shared_ptr<AllSongs> rows) {
  const bool again = rows_ != nullptr;
  const std::optional<PlaySong> active = again ? songAt(grid.row()) : std::nullopt;
  const bool same = rows_ == rows;
  rows_ = std::move(rows);
  grid.tag = QString::number(rows_->rowCount());
  const int row = grid.row();
  fill(palette, rows_);
  if (!again) return;
  const int stays = same ? row : active ? rowOf(*active) : 0;
  if (stays > 0) grid.SetActiveCell(1, stays);
}

int AllSongsPage::rowOf(const PlaySong& song) const {
  if (!rows_ || song.Path.isEmpty()) return 0;
  const QString title = songTitleShown(song.Title);
  for (int row = rows_->Find(title); row <= rows_->rowCount(); ++row) {
    if (rows_->cell(3, row) == song.Path) return row;
    if (rows_->cell(1, row).compare(title, Qt::CaseInsensitive) != 0) break;
  }
  return 0;
}

std::optional<PlaySong> AllSongsPage::songAt(int row) const {
  if (row < 1 || row > grid.maxRows()) return {};
  return PlaySong{songTitleShown(grid.cell(1, row)),
                  grid.cell(2, row),
                  grid.cell(4, row),
                  {},
                  {},
                  grid.cell(3, row)};
}

}  // namespace korvane
