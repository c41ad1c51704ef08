// When a supervised link is tried again.
#include "listener/link_watch.h"

#include <gtest/gtest.h>

#include "tests/fakes/print.h"

namespace korvane {
namespace {

constexpr auto kClosed = Winsock::Closed, kStanding = Winsock::Connected;

TEST(LinkWatch, ALostLinkIsTriedEverLaterUpToTwoSeconds) {
  LinkWatch watch;
  QList<qint64> tries;
  watch.stands(0);
  watch.hears(0);
  watch.ends(0, u"gone"_s);
  for (qint64 now = 0; now <= 9000; now += 50) {
    if (!watch.look(now, true, false, kClosed)) continue;
    tries << now;
    watch.tries(now);
    watch.ends(now, u"refused"_s);
  }
  EXPECT_EQ(tries, (QList<qint64>{500, 1500, 3500, 5500, 7500}));
}

TEST(LinkWatch, ATryThatHangsIsTriedAnew) {
  LinkWatch watch;
  EXPECT_TRUE(watch.look(0, true, false, kClosed));
  watch.tries(0);
  EXPECT_FALSE(watch.look(1900, true, false, Winsock::Connecting));
  EXPECT_EQ(watch.state(), LinkWatch::State::Trying);
  EXPECT_TRUE(watch.look(2000, true, false, Winsock::Connecting));
}

TEST(LinkWatch, APressTriesAtOnce) {
  LinkWatch watch;
  watch.ends(1000, u"refused"_s);
  EXPECT_EQ(watch.words(1000), u"refused; again in 1\u00a0s"_s);
  EXPECT_FALSE(watch.look(1001, true, false, kClosed));
  watch.again();
  EXPECT_TRUE(watch.look(1001, true, false, kClosed));
}

TEST(LinkWatch, APeerThatFallsSilentIsNoticedWithinTenSeconds) {
  const struct {
    bool asked, speaks;
    bool noticed;
  } cases[] = {{true, false, true}, {false, true, true}, {false, false, false}};
  for (const auto& it : cases) {
    LinkWatch watch;
    watch.stands(0);
    watch.hears(0);
    if (it.asked) watch.asks(0);
    bool noticed = false;
    for (qint64 now = 0; now < 10'000; now += 250)
      noticed |= watch.look(now, true, it.speaks, kStanding);
    EXPECT_EQ(noticed, it.noticed);
    EXPECT_EQ(watch.rests(), !it.noticed);
    if (!it.noticed) continue;
    watch.tries(10'000);  // accepts again, but that alone is no answer
    watch.stands(10'001);
    EXPECT_EQ(watch.words(10'001), u"it does not answer"_s);
    watch.hears(10'002);
    EXPECT_EQ(watch.state(), LinkWatch::State::Stands);
  }
}

TEST(LinkWatch, NothingIsDoneForALinkThatIsNotWanted) {
  LinkWatch watch;
  watch.ends(0, u"refused"_s);
  EXPECT_FALSE(watch.look(60'000, false, true, kClosed));
  EXPECT_EQ(watch.state(), LinkWatch::State::Off);
  EXPECT_TRUE(watch.rests());
}

}  // namespace
}  // namespace korvane
