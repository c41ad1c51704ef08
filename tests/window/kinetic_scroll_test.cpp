#include "view/controls/kinetic_scroll.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

// A finger that moves `speed` pixels a millisecond for `length` ms, one report every 8 ms.
KineticScroll thrown(double start, double speed, int length, int rest = 0) {
  KineticScroll scroll;
  scroll.setRange(10'000, 400);
  scroll.jumpTo(start);
  scroll.press(200, 0);
  for (int t = 8; t <= length; t += 8) scroll.move(200 + speed * t, t);
  scroll.release(length + rest);
  return scroll;
}

int runOut(KineticScroll& scroll, int from) {
  int now = from;
  while (scroll.step(now += 16) && now < from + 10'000) {
  }
  return now - from;
}

TEST(KineticScroll, FollowsTheFingerThenCoastsAndComesToRest) {
  KineticScroll scroll = thrown(5000, -2, 96);
  EXPECT_NEAR(scroll.offset(), 5192, 1);
  EXPECT_TRUE(scroll.moving());
  const int spent = runOut(scroll, 96);
  EXPECT_NEAR(scroll.offset(), 5192 + 2 * 325, 40);
  EXPECT_GT(spent, 500);
  EXPECT_LT(spent, 3000);
  EXPECT_FALSE(scroll.moving());
}

TEST(KineticScroll, AFingerThatRestedThrowsNothing) {
  EXPECT_FALSE(thrown(5000, -2, 96, 100).moving());
  EXPECT_FALSE(thrown(5000, 0, 96).moving());
}

TEST(KineticScroll, TheEndsGiveAndSpringBack) {
  const double throws[][3] = {{0, 3, 0}, {10'000, -3, 10'000}, {100, 8, 0}};
  for (const auto& [start, speed, end] : throws) {
    KineticScroll scroll = thrown(start, speed, 160);
    const double stretch = std::abs(scroll.offset() - end);
    EXPECT_GT(stretch, 20);
    EXPECT_LT(stretch, 400) << "never as far as the finger";
    runOut(scroll, 160);
    EXPECT_EQ(scroll.offset(), end);
  }
}

}  // namespace
}  // namespace korvane
