// Find as you go, in the playlist editor: up to ten artists, albums or songs for a typed text, and
// what a picked one holds.
#pragma once

#include "core/app_state.h"
#include "core/form/control.h"
#include "core/palette.h"
#include "library/data/database.h"

namespace korvane {

// Fills one list. Columns: 1 what is shown; hidden: of an artist nothing more, of an album 2 album
// and 3 artist, of a song 2 path.
class clsSearch {
 public:
  static constexpr int kMost = 10;  // rows of a result

  // Refers to them all, which must outlive it.
  clsSearch(Grid& grid, Database& database, const Palette& palette, const AppState& state)
      : grid_(grid), database_(database), palette_(palette), state_(state) {}

  void SetupPlaySongs();            // the look of the list
  void Setup(const QString& kind);  // header of "ARTIST", "ALBUM" or "SONG"; empties the list

  // Each throws DatabaseError and leaves the list and its kind as they were then.
  void SearchArtist(const QString& artist);                       // the artist's albums
  void SearchAlbum(const QString& album, const QString& artist);  // the album's songs
  // '%' in the text stands for any text. An empty one finds the first ten.
  void Search(const QString& kind, const QString& text);

  // Rows no higher than this many units of GridHeight from the next list on.
  void setMostRowHeight(int units) { mostRowHeight_ = units; }
  const QString& kind() const { return kind_; }  // of the rows at hand

 private:
  void show(const QString& kind, std::vector<RowTable::Row> rows);

  Grid& grid_;
  Database& database_;
  const Palette& palette_;
  const AppState& state_;
  QString kind_ = u"ARTIST"_s;
  int mostRowHeight_ = std::numeric_limits<int>::max();
};

}  // namespace korvane
