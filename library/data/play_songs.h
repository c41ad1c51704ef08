// The current play list and its shuffle bag, both in memory only.
#pragma once

#include "library/data/recordset.h"
#include "platform/clock.h"
#include "platform/text.h"

namespace korvane {

// A song of the play list. The texts are cut to their fields' widths; the path is kept whole.
struct PlaySong {
  QString Title, Artist, Album, Comment, Year, Path;
  bool operator==(const PlaySong&) const = default;
};

class PlaySongs {
 public:
  Recordset<PlaySong> rsPlaySongs;
  Recordset<int> rsRandomPool;  // record numbers of rsPlaySongs that were not drawn yet

  void resetPlaySongs();  // both empty
  // Appends a song, cut to its fields, and its number to the pool.
  void addPlaySong(const PlaySong& song);
  // The whole play list at once, of songs that are fitted(); as addPlaySong() for each.
  void setPlaySongs(const QList<PlaySong>& songs);
  // Takes a song out of the play list and of the pool. The current record stays the same song, or
  // becomes the one behind it when that is the one that goes.
  void removePlaySong(int record);
  static PlaySong fitted(PlaySong song);  // the texts cut to their fields' widths

  // Draws one number of the pool and takes it out. An empty pool gives 0, or is filled first when
  // `refill` is set.
  int getRandomRecord(bool refill, Chance& chance);
};

}  // namespace korvane
