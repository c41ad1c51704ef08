#include "custom/home_panel.h"

#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

struct HomePanelTest : FormWorld {
  HomePanelTest() {
    panel.artist = [] { return u"Odd Kestrel"_s; };
  }
  QString caption(const char* name) { return form.find(QString::fromLatin1(name))->caption(); }
  bool shown(const char* name) { return form.find(QString::fromLatin1(name))->visible(); }

  Form form{u"frmMain"_s, mainInventory()};
  HomePanel panel{form, {state, settings, clock}};
};

TEST_F(HomePanelTest, TheClockTicksOnceAtTheBeginningOfEachMinuteAndOnlyWhileItShows) {
  auto& timer = dynamic_cast<Timer&>(*form.find(u"HomeTimer"));
  panel.show();
  EXPECT_FALSE(shown("frameHome") || shown("lblHomeClock") || timer.enabled());
  given(key::HomePanel, u"yes"_s);
  clock.start = QDateTime(QDate(2024, 2, 29), QTime(9, 5, 40, 250));
  panel.show();
  EXPECT_TRUE(shown("frameHome") && shown("lblHomeClock") && timer.enabled());
  EXPECT_EQ(caption("lblHomeClock"), u"09:05"_s);
  EXPECT_EQ(caption("lblHomeDate"), u"Thursday, 29 February"_s);
  for (int minute = 6; minute < 9; ++minute) {
    clock.advance(timer.interval());
    panel.HomeTimer_Timer();
    EXPECT_EQ(caption("lblHomeClock"), u"09:0%1"_s.arg(minute));
    EXPECT_LT(clock.now().time().msecsSinceStartOfDay() % 60'000, 100);
  }
  panel.hide();
  EXPECT_FALSE(timer.enabled());
}

TEST_F(HomePanelTest, ShowsTheCoverAndThePlaceWhileItShows) {
  given(key::HomePanel, u"YES"_s);
  Control &playing = *form.find(u"lblCurrentPlay"), &cover = *form.find(u"picHomeCover");
  state.gSongPlayingTitle = u"Playing: Idle"_s;  // a title, whatever it says
  playing.caption = u"Playing: Playing: Idle"_s;
  EXPECT_EQ(caption("lblHomeTitle"), QString()) << "hidden, it does nothing";
  panel.show();
  EXPECT_EQ(caption("lblHomeTitle"), u"Playing: Idle"_s);
  EXPECT_EQ(cover.picture().name, u"emptyart"_s);
  const Picture jpeg{{}, {}, std::make_shared<const QByteArray>("JPEG")};
  form.find(u"coverArt")->picture = jpeg;
  form.find(u"coverArt")->tag = u"TRUE"_s;
  form.find(u"TxtTime")->caption = u"0:02"_s;
  form.find(u"lblDuration")->caption = u"3:10"_s;
  EXPECT_EQ(cover.picture(), jpeg);
  EXPECT_EQ(caption("lblHomePosition"), u"0:02 / 3:10"_s);
  state.gSongPlayingTitle.clear();
  playing.caption = u"Status: Idle"_s;
  EXPECT_EQ(cover.picture().name, u"emptyart"_s);
  EXPECT_FALSE(form.find(u"cmdHome", 2)->enabled());
}

}  // namespace
}  // namespace korvane
