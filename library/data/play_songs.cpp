#include "library/data/play_songs.h"

#include <numeric>

#include "library/data/song.h"
#include "library/data/vb_text.h"

namespace korvane {

void PlaySongs::resetPlaySongs() {
  rsPlaySongs = {};
  rsRandomPool = {};
}

PlaySong PlaySongs::fitted(PlaySong song) {
  const auto fit = [](QString& text, int width) {
    if (text.size() > width) text = cut(text, width);
  };
  fit(song.Title, width::SongTitle);
  fit(song.Artist, width::Artist);
  fit(song.Album, width::album);
  fit(song.Comment, width::Comment);
  fit(song.Year, width::year);
  return song;
}

void PlaySongs::addPlaySong(const PlaySong& song) {
  rsPlaySongs.AddNew(fitted(song));
  rsRandomPool.AddNew(rsPlaySongs.RecordCount());
}

void PlaySongs::setPlaySongs(const QList<PlaySong>& songs) {
  QList<int> records(songs.size());
  std::iota(records.begin(), records.end(), 1);
  rsRandomPool.setRows(std::move(records));
  rsRandomPool.MoveLast();
  rsPlaySongs.setRows(songs);
  rsPlaySongs.MoveLast();
}

void PlaySongs::removePlaySong(int record) {
  if (record < 1 || record > rsPlaySongs.RecordCount()) return;
  const int current = rsPlaySongs.AbsolutePosition();
  rsPlaySongs.setAbsolutePosition(record);
  rsPlaySongs.Delete();
  rsPlaySongs.setAbsolutePosition(current > record ? current - 1 : current);
  QList<int> left = rsRandomPool.rows();
  left.removeOne(record);
  for (int& number : left)
    if (number > record) --number;
  rsRandomPool.setRows(std::move(left));
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
