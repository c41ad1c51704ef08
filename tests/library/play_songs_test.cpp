#include "library/data/play_songs.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_clock.h"

namespace korvane {
namespace {

PlaySongs listOf(int count) {
  PlaySongs songs;
  songs.resetPlaySongs();
  for (int i = 1; i <= count; ++i) songs.addPlaySong({QString::number(i), {}, {}, {}, {}, {}});
  return songs;
}

TEST(PlaySongs, CutsTextsToTheirFieldsAndKeepsThePath) {
  PlaySongs songs = listOf(0);
  const QString wide(300, u'x');
  songs.addPlaySong({wide, wide, wide, wide, wide, wide});
  const PlaySong& row = songs.rsPlaySongs.row();
  EXPECT_EQ(row.Title.size() + row.Artist.size() + row.Album.size(), 210);
  EXPECT_EQ(row.Comment.size(), 30);
  EXPECT_EQ(row.Year.size(), 4);
  EXPECT_EQ(row.Path, wide);
}

TEST(PlaySongs, TheBagPlaysEachOnceBeforeAnyAgain) {
  PlaySongs songs = listOf(5);
  for (const float draw : {0.0F, 0.5F, 0.99999997F}) {
    FakeChance chance;
    chance.script.assign(6, draw);
    std::vector<int> drawn;
    for (int i = 0; i < 5; ++i) drawn.push_back(songs.getRandomRecord(i == 0, chance));
    std::sort(drawn.begin(), drawn.end());
    EXPECT_EQ(drawn, (std::vector<int>{1, 2, 3, 4, 5})) << draw;
    EXPECT_EQ(songs.getRandomRecord(false, chance), 0);
  }
}

}  // namespace
}  // namespace korvane
