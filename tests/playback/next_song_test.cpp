#include "playback/next_song.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

constexpr PlayModes kPlain{}, kRepeat{true, false, false}, kRandom{false, true, false},
    kContinue{false, false, true}, kRandomOn{false, true, true};

TEST(NextSong, InAList) {
  struct Case {
    PlayModes modes;
    int position, count, drawn, expected;
  };
  // A draw of 0 is an empty bag; a refilled bag always gives a number.
  const Case table[] = {
      {kPlain, 1, 3, 9, 2},    {kPlain, 3, 3, 9, 0},    {kPlain, 1, 0, 9, 0},
      {kRepeat, 3, 3, 9, 3},   {kContinue, 3, 3, 9, 1}, {kContinue, 2, 3, 9, 3},
      {kRandom, 2, 3, 0, 0},   {kRandom, 2, 3, 3, 3},   {kRandom, 1, 1, 0, 1},
      {kRandomOn, 2, 3, 1, 1},
  };
  for (const Case& c : table) {
    bool refill = false;
    const int next = nextInList(c.modes, c.position, c.count, [&](bool mayRefill) {
      refill = mayRefill;
      return c.drawn;
    });
    EXPECT_EQ(next, c.expected) << c.position << " of " << c.count;
    EXPECT_EQ(refill, c.modes.random && c.count > 1 && c.modes.continueOn);
  }
}

TEST(NextSong, OfAllSongs) {
  struct Case {
    PlayModes modes;
    int position, count;
    float rnd;
    int expected;
  };
  const Case table[] = {
      {kPlain, 1, 3, 0, 2},
      {kPlain, 3, 3, 0, 0},
      {kContinue, 3, 3, 0, 1},
      {kRepeat, 2, 3, 0, 2},
      {kRandom, 2, 3, 0, 1},
      {kRandom, 2, 3, 0.99999994F, 3},
      {kRandom, 1, 1000000, 0.5F, 500001},
      {kPlain, 1, 0, 0, 0},
      {kRandom, 0, 0, 0.5F, 0},
  };
  for (const Case& c : table)
    EXPECT_EQ(nextOfAllSongs(c.modes, c.position, c.count, c.rnd), c.expected) << c.position;
}

TEST(NextSong, StepsGoRoundTheEnds) {
  EXPECT_EQ(stepInList(3, 3, 1), 1);
  EXPECT_EQ(stepInList(1, 3, -1), 3);
  EXPECT_EQ(stepInList(0, 3, 1), 1);
  EXPECT_EQ(stepInList(1, 0, 1), 0);
}

}  // namespace
}  // namespace korvane
