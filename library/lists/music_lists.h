// One object for each list of the Music tab and of the radio: its columns and colours, what it says
// when it is empty, and which song a row of it is.
#pragma once

#include "core/app_state.h"
#include "core/form/form.h"
#include "core/palette.h"
#include "library/data/database.h"
#include "library/lists/playlists.h"

namespace korvane {

PlaySong asPlaySong(const Song& song);

class MusicListPage {
 public:
  MusicListPage(Grid& ofGrid, MusicList which) : grid(ofGrid), list(which) {}
  virtual ~MusicListPage() = default;

  Grid& grid;
  const MusicList list;

  // Columns, row height, font, colours and the text of an empty list.
  void setUp(const Palette& palette, const AppState& state);
  // In the colours that the theme has now, then these rows from the first.
  void fill(const Palette& palette, std::shared_ptr<const RowSource> rows);
  void fill(const Palette& palette, std::vector<RowTable::Row> rows);

  // The command that is lit while the list is on screen; nothing for the CD and the radio.
  std::optional<PageCommand> command() const;

  // Whether its rows are songs, to be played and queued from here.
  virtual bool holdsSongs() const { return false; }
  // All of them in the order of the rows; empty for the page of all songs, which copies none.
  virtual QList<PlaySong> songs() const { return {}; }
  // The song of a row, with its own title; nothing outside the rows and in other lists.
  virtual std::optional<PlaySong> songAt(int row) const;
};

// An album or the favourites: rows that are songs of the library.
class SongListPage : public MusicListPage {
 public:
  using MusicListPage::MusicListPage;
  void show(const Palette& palette, QList<Song> songs);  // the rows, favourites in italics
  void clear();
  void mark(int row);  // as a favourite
  Song take(int row);  // out of the list; its row must be there
  int size() const { return static_cast<int>(songs_.size()); }

  bool holdsSongs() const override { return true; }
  QList<PlaySong> songs() const override;
  std::optional<PlaySong> songAt(int row) const override;

 private:
  QList<Song> songs_;
};

// A playlist as it was opened last.
class PlaylistPage : public MusicListPage {
 public:
  PlaylistPage(Grid& ofGrid, const Playlists& playlists)
      : MusicListPage(ofGrid, MusicList::PlaylistSongs), playlists_(playlists) {}
  bool holdsSongs() const override { return true; }
  QList<PlaySong> songs() const override { return playlists_.openedSongs(); }

 private:
  const Playlists& playlists_;
};

class AllSongsPage : public MusicListPage {
 public:
  explicit AllSongsPage(Grid& ofGrid) : MusicListPage(ofGrid, MusicList::AllSongs) {}
  // The rows; the song that was active stays so, wherever it stands now.
  void show(const Palette& palette, std::shared_ptr<AllSongs> rows);
  AllSongs* rows() const { return rows_.get(); }  // null before the first fill
  int rowOf(const PlaySong& song) const;          // by title and path; 0 when it is not there

  bool holdsSongs() const override { return true; }
  std::optional<PlaySong> songAt(int row) const override;

 private:
  std::shared_ptr<AllSongs> rows_;
};

}  // namespace korvane
