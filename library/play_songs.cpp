#include "library/play_songs.h"

#include "library/song.h"
#include "library/vb_text.h"

namespace korvane {

void PlaySongs::resetPlaySongs() {
  rsPlaySongs = {};
  rsRandomPool = {};
}

void PlaySongs::addPlaySong(const PlaySong& song) {
  rsPlaySongs.AddNew({cut(song.Title, width::SongTitle), cut(song.Artist, width::Artist),
                      cut(song.Album, width::album), cut(song.Comment, width::Comment),
                      cut(song.Year, width::year), song.Path});
  rsRandomPool.AddNew(rsPlaySongs.RecordCount());
}

int PlaySongs::getRandomRecord(bool refill, Chance& chance) {
  if (rsRandomPool.RecordCount() == 0) {
    if (!refill) return 0;
    for (int record = 1; record <= rsPlaySongs.RecordCount(); ++record) rsRandomPool.AddNew(record);
  }
  const float drawn = chance.rnd() * static_cast<float>(rsRandomPool.RecordCount()) + 1;
  // Single precision can round a draw just under 1 up to the count + 1.
  rsRandomPool.setAbsolutePosition(std::min(static_cast<int>(drawn), rsRandomPool.RecordCount()));
  const int record = rsRandomPool.row();
  rsRandomPool.Delete();
  return record;
}

}  // namespace korvane
