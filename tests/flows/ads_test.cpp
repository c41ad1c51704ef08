#include "ads/ad_timing.h"
#include "tests/flows/cabin.h"

namespace korvane {
namespace {

QDateTime at(int day, int hour, int minute) {  // of a week, Monday 1
  return {QDate(2024, 3, 3 + day), QTime(hour, minute)};
}

TEST(AdTimings, AreTheFirstLineWhenItIsANumberOfSeconds) {
  const std::pair<QByteArray, int> table[] = {{"12", 12},
                                              {"12\r\nMon", 12},
                                              {" 7 \n", 7},
                                              {"12.5", 12},
                                              {"13.5", 14},
                                              {"499.4", 499},
                                              {"499.9", 500},
                                              {"500", 10},
                                              {"0", 10},
                                              {"-3", 10},
                                              {"", 10},
                                              {"\n12", 10},
                                              {"&H10", 16},
                                              {"0.2", 0},
                                              {"1e2", 100},
                                              {"nan", 10},
                                              {"\xff\xfe"
                                               "1",
                                               10},
                                              {"12\rFri\r", 12},
                                              {QByteArray(1 << 20, '9'), 10},
                                              {QByteArray(300, ' ') + "9", 10},
                                              {"9\n" + QByteArray(1 << 20, 'x'), 9}};
  for (const auto& [file, seconds] : table)
    EXPECT_EQ(adTiming(file, 10).seconds, seconds) << file.left(20).toStdString();
  const AdTiming long_ = adTiming("9\n" + QByteArray("Mon\n").repeated(1 << 18), 10);
  EXPECT_LE(long_.hours.size(), 100U);
}

TEST(AdTimings, SayHoursInTheirFurtherLines) {
  struct Case {
    QByteArray lines;
    bool understood;
    std::vector<QDateTime> in, out;
  };
  const Case table[] = {
      {"", true, {at(1, 0, 0), at(7, 23, 59)}, {}},
      {"Mon-Fri 08:00-18:00",
       true,
       {at(1, 8, 0), at(5, 17, 59)},
       {at(1, 7, 59), at(5, 18, 0), at(6, 9, 0)}},
      {"8:30-12:00\n\n; noon\nsun", true, {at(3, 8, 30), at(7, 20, 0)}, {at(3, 12, 0)}},
      {"sat,MON-tue  10:00-24:00",
       true,
       {at(6, 23, 59), at(2, 10, 0)},
       {at(3, 11, 0), at(7, 0, 0)}},
      {"Sat-Mon", true, {at(7, 1, 0), at(1, 1, 0)}, {at(2, 1, 0), at(5, 1, 0)}},
      {"Sun 22:00-02:00",
       true,
       {at(7, 22, 0), at(1, 1, 59)},
       {at(7, 1, 0), at(1, 2, 0), at(1, 22, 0)}},
      {"Mon\nhalf past ten", false, {at(1, 5, 0)}, {at(2, 5, 0)}},
      {"25:00-26:00", false, {at(1, 5, 0)}, {}},
      {"10:00-10:00", false, {at(1, 5, 0)}, {}},
      {"08:00-18:00 Mon", false, {at(7, 5, 0)}, {}},
      {"Mon-", false, {at(7, 5, 0)}, {}},
      {"Mon 08:00", false, {at(7, 5, 0)}, {}},
      {"Mon 08:60-09:00", false, {at(7, 5, 0)}, {}}};
  for (const auto& [lines, understood, in, out] : table) {
    SCOPED_TRACE(lines.constData());
    const AdTiming timing = adTiming("5\n" + lines, 10);
    EXPECT_EQ(timing.understood, understood);
    const Ad ad{{}, {}, 0, timing.hours};
    for (const QDateTime& when : in) EXPECT_TRUE(ad.due(when)) << when.toString().toStdString();
    for (const QDateTime& when : out) EXPECT_FALSE(ad.due(when)) << when.toString().toStdString();
  }
}

class Ads : public CabinTest {
 protected:
  void ad(const QString& name, const QByteArray& timing = {}) {
    home.put(u"ADDS/"_s + name, "picture");
    if (!timing.isEmpty()) home.put(u"ADDS/"_s + name.chopped(3) + u"tim"_s, timing);
  }
  // Three idle seconds to the show, an ad for two.
  void open(const QByteArray& startup = {}) {
    setting("LOCALLISTENER=1\nADDSON=YES\nADDSTART=3\nADDSBETWEEN=2\n" + startup);
    start();
    system().pump.settle();
  }
  void pass(int seconds) {
    for (; seconds > 0; --seconds) {
      system().clock.advance(1000);
      if (control(u"AddTimer"_s).enabled()) fire(u"AddTimer"_s, Event::Tick);
    }
  }
  void passInShow(Form& view, int seconds) {
    Control& timer = *view.find(u"pictimer");
    for (; seconds > 0; --seconds) {
      system().clock.advance(1000);
      if (timer.enabled()) view.fire(timer, {Event::Tick});
      system().pump.settle();
    }
  }
  void down(bool left = true, bool right = false) { kept = host->touches.tell(left, right); }
  void up() { kept = host->touches.tell(false, false) || kept; }
  void touch() {
    down();
    up();
  }
  void whenShown(FakeFormHost::Script script = [](Form&) {}) {
    host->onModal(u"frmViewAdds"_s, [this, script = std::move(script)](Form& view) {
      system().pump.settle();
      script(view);
    });
  }
  bool shownOnce() { return host->opened.removeAll(u"frmViewAdds"_s) == 1; }
  // The seconds until the ads come, at most `limit`.
  int secondsToShow(int limit = 20) {
    whenShown();
    for (int passed = 1; passed <= limit; ++passed) {
      pass(1);
      if (shownOnce()) return passed;
    }
    return -1;
  }
  QStringList loaded() {
    QStringList names;
    for (const QString& path : std::exchange(system().imaging.loads, {}))
      names << path.section(u'/', -1);
    return names;
  }
  static bool black(Form& view) { return view.find(u"picTransition")->picture().empty(); }

  bool kept = false;  // the last touch was for nothing but waking
};

TEST_F(Ads, PlayInTheOrderOfTheirNamesEachASecondLongerAndRoundTheEnd) {
  ad(u"ad2.jpg"_s);
  ad(u"AD1.JPG"_s);
  home.put(u"ADDS/ad1.TIM"_s, "1\n");
  ad(u"Ad3.jpg"_s, "900");
  ad(u"ad0.bmp"_s);
  home.put(u"ADDS/ad2.jpeg"_s, "x");
  open("AdLog=YES\n");
  whenShown([&](Form& view) {
    const auto said = [&](int seconds) {
      passInShow(view, seconds);
      return loaded();
    };
    EXPECT_EQ(loaded(), QStringList{u"AD1.JPG"_s});
    EXPECT_EQ(said(1), QStringList());
    EXPECT_EQ(said(1), QStringList{u"ad2.jpg"_s}) << "decoded while the first stands once more";
    const auto first = view.find(u"picTransition")->picture().pixels;
    EXPECT_EQ(said(1), QStringList());
    EXPECT_EQ(view.find(u"picTransition")->picture().pixels, first);
    EXPECT_EQ(said(1), QStringList{u"Ad3.jpg"_s});
    EXPECT_NE(view.find(u"picTransition")->picture().pixels, first);
    EXPECT_EQ(said(3), QStringList{u"AD1.JPG"_s});
    EXPECT_EQ(said(3), QStringList{u"ad2.jpg"_s}) << "the first one again";
    korvane::press(view, u"picTransition"_s);
    EXPECT_FALSE(view.shown());
  });
  pass(4);
  EXPECT_TRUE(shownOnce());
  EXPECT_TRUE(control(u"AddTimer"_s).enabled());
  const QString log = QString::fromUtf8(home.get(u"AdLog.txt"_s));
  EXPECT_EQ(log.split(u'\n').value(0), u"2024-03-05 14:07:13\t2\tAD1.JPG"_s);
  EXPECT_EQ(log.count(u'\n'), 5) << log.toStdString();
}

TEST_F(Ads, ABadFileLeavesThePictureAndALineAndABadTimeIsNoHarm) {
  ad(u"a.jpg"_s, "1");
  ad(u"b.jpg"_s, QByteArray(1 << 20, 'x'));
  open();
  system().imaging.files[home / u"ADDS/b.jpg"_s].error = u"b.jpg is no picture"_s;
  whenShown([&](Form& view) {
    const auto first = view.find(u"picTransition")->picture().pixels;
    EXPECT_TRUE(first);
    passInShow(view, 9);
    EXPECT_EQ(view.find(u"picTransition")->picture().pixels, first);
    EXPECT_TRUE(home.get(u"log.txt"_s).contains("b.jpg'\nb.jpg is no picture"));
    system().imaging.files.clear();
    passInShow(view, 9);
    EXPECT_NE(view.find(u"picTransition")->picture().pixels, first) << "the show has gone on";
  });
  pass(4);
  EXPECT_TRUE(shownOnce());
}

TEST_F(Ads, WithoutOneTheyAreOffInThisRun) {
  for (const bool directory : {false, true}) {
    if (directory) ad(u"only.bmp"_s);
    open();
    EXPECT_FALSE(console().desk.state.gAddsOn);
    pass(10);
    EXPECT_EQ(home.get(u"Morvanta.INI"_s).count("ADDSON=YES"), 1);
  }
}

TEST_F(Ads, TheIdleSecondsBeginAgainAtATouchButNotAtEach) {
  ad(u"a.jpg"_s);
  struct Case {
    const char* what;
    std::function<void()> touch;
    int absent, byTouch;  // seconds from it to the show, after two that have passed
  };
  const auto right = [this] {
    down(false, true);
    up();
  };
  const Case table[] = {{"none", [] {}, 2, 2},
                        {"the very first", [this] { touch(); }, 2, 4},
                        {"the second", [this] { touch(), touch(); }, 4, 4},
                        {"right", [=, this] { touch(), right(); }, 2, 4},
                        {"right, and then left", [=, this] { touch(), right(), touch(); }, 4, 4},
                        {"left while right is held",
                         [this] {
                           touch();
                           down(false, true);
                           down(true, true);
                           up();
                         },
                         2, 4},
                        {"one that is held",
                         [this] {
                           touch(), down();
                           pass(1);
                         },
                         3, 3}};
  for (const QByteArray& key : {QByteArray(), QByteArray("IdleByTouch=YES\n")})
    for (const Case& each : table) {
      SCOPED_TRACE((key + each.what).toStdString());
      open(key);
      pass(2);
      each.touch();
      EXPECT_EQ(secondsToShow(), key.isEmpty() ? each.absent : each.byTouch);
      EXPECT_FALSE(kept);
    }
}

TEST_F(Ads, TheSecondsMustBeEqualAndNotMore) {
  ad(u"a.jpg"_s);
  open();
  whenShown();
  pass(3);
  host->onModal(u"frmSetup"_s, [this](Form& setup) {
    host->onModal(u"frmAdds"_s, [](Form& adds) {
      dynamic_cast<Slider*>(adds.find(u"seconds"))->moveTo(2);
      korvane::press(adds, u"cmdok"_s);
    });
    korvane::press(setup, u"cmdAddDir"_s, 5);
  });
  console().custom.setup.open();
  system().pump.settle();
  pass(30);
  EXPECT_TRUE(host->opened.filter(u"frmViewAdds"_s).isEmpty()) << "3 is not 2";
  touch(), touch();
  pass(3);
  EXPECT_TRUE(shownOnce());
}

TEST_F(Ads, ComeOverEachTabAndNeverOverWhatIsMoreImportant) {
  ad(u"a.jpg"_s);
  givenDays();
  home.put(u"Films/Tern.avi"_s, "x");
  home.put(u"Album/Sea/one.jpg"_s, "x");
  open("[Movies]\nMDirectory=" + home.path().toUtf8() +
       "/Films\n[Photos]\nPDirectory=" + home.path().toUtf8() + "/Album\n");
  for (const int tab : {kMusicTab, kMoviesTab, kPhotosTab, kMainTab, kMapsTab, kMoreTab}) {
    press(u"imgTabs"_s, tab);
    EXPECT_EQ(secondsToShow(), 4) << tab;
  }
  const auto none = [this](const char* what) {
    pass(10);
    EXPECT_FALSE(shownOnce()) << what;
  };
  host->onModal(u"frmMsgBox"_s, [&](Form&) { none("a message"); });
  console().desk.messages.say(u"The disk is full"_s);
  host->onModal(u"frmSetup"_s, [&](Form&) { none("setup"); });
  console().custom.setup.open();
  console().desk.screen.MousePointer = Screen::Hourglass;
  none("a press at work");
  console().desk.screen.MousePointer = Screen::Custom;
  form().minimised = true;
  none("minimised");
  form().minimised = false;
  EXPECT_EQ(secondsToShow(), 4);

  press(u"imgTabs"_s, kMoviesTab);
  auto& movies = dynamic_cast<Grid&>(control(u"MovieList"_s));
  EXPECT_TRUE(form().fire(movies, {Event::DblClick, 1, 1}));
  system().pump.settle();
  none("a movie");
  press(u"cmdControls"_s, static_cast<int>(TransportButton::Pause));
  none("a movie that is paused");
  press(u"cmdControls"_s, static_cast<int>(TransportButton::Stop));
  EXPECT_EQ(secondsToShow(), 4);

  press(u"imgTabs"_s, kPhotosTab);
  for (int touch = 0; touch < 2; ++touch) {  // the folder, and its picture
    EXPECT_TRUE(form().fire(control(u"PhotoList"_s), {Event::Click, 2, 2}));
    system().pump.settle();
  }
  none("a show");
  press(u"cmdControls"_s, static_cast<int>(TransportButton::Pause));
  none("a show that is paused");
  press(u"cmdControls"_s, static_cast<int>(TransportButton::Stop));
  EXPECT_EQ(secondsToShow(), 4) << "after a show";
}

TEST_F(Ads, AreNotBroughtByTheGapBetweenTwoSongs) {
  ad(u"a.jpg"_s);
  givenDays();
  for (const bool byTouch : {false, true}) {
    open(byTouch ? "IdleByTouch=YES\n" : "");
    openAlbum(1, 1);
    pass(3);  // one more would bring them
    playRow(1, 1);
    for (int song = 0; song < 2; ++song) {
      pass(100);
      touch();
      console().desk.state.gPlayMode = PlayMode::Stopped;  // as a Listener says it between two
      pass(1);
      songEnds();
    }
    EXPECT_EQ(playing(), u"003-Dusk"_s);
    EXPECT_FALSE(shownOnce());
    songEnds();
    EXPECT_EQ(secondsToShow(), byTouch ? 4 : 1) << "the music is over";
  }
}

TEST_F(Ads, GoForAMessageAndForAMovieAndAtTheEnd) {
  ad(u"a.jpg"_s);
  home.put(u"Films/Tern.avi"_s, "x");
  open("[Movies]\nMDirectory=" + home.path().toUtf8() + "/Films\n");
  press(u"imgTabs"_s, kMoviesTab);
  const std::pair<const char*, std::function<void()>> table[] = {
      {"a message",
       [this] {
         answer(u"Lights are off"_s);
         console().desk.messages.say(u"Lights are off"_s);
       }},
      {"a movie",
       [this] { console().desk.players.press(console().movies.transport, TransportButton::Play); }},
      {"the end, while an ad is read", [this] { console().desk.startup.closeit(); }}};
  for (const auto& [what, comes] : table) {
    system().pump.holdBackground = what == table[2].first;
    whenShown([&, comes = comes](Form& view) {
      comes();
      EXPECT_FALSE(view.shown());
    });
    pass(4);
    EXPECT_TRUE(shownOnce()) << what;
    console().desk.players.press(console().movies.transport, TransportButton::Stop);
  }
  system().pump.holdBackground = false;
  open();
  system().pump.runBackground();
  EXPECT_EQ(secondsToShow(), 4) << "what was read belongs to a console that is gone";
}

TEST_F(Ads, ATouchThatWakesIsForNothingElse) {
  ad(u"a.jpg"_s);
  for (const bool wake : {false, true}) {
    open(wake ? "AdWake=YES\n" : "");
    whenShown([&](Form& view) {
      down();
      EXPECT_EQ(view.shown(), !wake);
      EXPECT_EQ(kept, wake);
      if (!wake) korvane::press(view, u"picTransition"_s);
      EXPECT_FALSE(view.shown());
      up();
    });
    pass(4);
    EXPECT_TRUE(shownOnce());
    touch();
    EXPECT_FALSE(kept) << "the next one presses";
  }
}

TEST_F(Ads, ShowInTheirHoursAndNoneIsABlackScreen) {
  ad(u"day.jpg"_s, "5\nTue 14:00-14:08");
  ad(u"night.jpg"_s, "5\nTue 22:00-23:00\n");
  open("AdHours=YES\nAdBlack=60\n");  // it is Tuesday, 14:07:09
  whenShown([&](Form& view) {
    passInShow(view, 20);
    EXPECT_FALSE(black(view));
    EXPECT_FALSE(loaded().contains(u"night.jpg"_s));
    passInShow(view, 60);
    EXPECT_TRUE(black(view)) << "the hour is over";
    system().clock.advance(8 * 3600 * 1000);
    passInShow(view, 7);
    EXPECT_FALSE(black(view));
    EXPECT_EQ(loaded().last(), u"night.jpg"_s);
  });
  pass(4);
  EXPECT_TRUE(shownOnce());
  system().clock.advance(3600 * 1000);
  pass(20);
  EXPECT_FALSE(shownOnce()) << "none is due";
}

TEST_F(Ads, TheScreenGoesBlackAfterALongWhileWithoutAds) {
  setting("ADDSON=NO\nAdBlack=3600\nAdWake=YES\n");
  start();
  auto& timer = dynamic_cast<Timer&>(control(u"BlackTimer"_s));
  const auto rings = [&] {
    EXPECT_TRUE(timer.enabled());
    system().clock.advance(timer.interval());
    fire(u"BlackTimer"_s, Event::Tick);
  };
  system().clock.advance(600 * 1000);
  touch();
  system().clock.advance(3000 * 1000);
  fire(u"BlackTimer"_s, Event::Tick);
  EXPECT_EQ(timer.interval(), 600 * 1000) << "what is left of the hour since the touch";
  whenShown([&](Form& view) {
    EXPECT_TRUE(black(view));
    EXPECT_FALSE(timer.enabled() || view.find(u"pictimer")->enabled())
        << "nothing wakes the machine";
    down();
    EXPECT_TRUE(kept && !view.shown());
    up();
  });
  rings();
  EXPECT_TRUE(shownOnce());
  console().desk.state.gMusicState = MusicState::Play;
  rings();
  rings();
  EXPECT_FALSE(shownOnce());
  console().desk.state.gMusicState = MusicState::Stop;
  rings();
  EXPECT_EQ(timer.interval(), 3590 * 1000) << "an hour from the music";
}

TEST_F(Ads, ShiftSlowlyAndLittle) {
  ad(u"a.jpg"_s);
  open("AdShift=YES\n");
  whenShown([&](Form& view) {
    const auto& area = dynamic_cast<PictureArea&>(*view.find(u"picTransition"));
    std::set<std::pair<int, int>> places;
    for (int second = 0; second < 4000; ++second) {
      const int x = area.shiftX(), y = area.shiftY();
      passInShow(view, 1);
      EXPECT_LE(std::abs(area.shiftX() - x), 1);
      EXPECT_LE(std::abs(area.shiftY() - y), 1);
      places.insert({area.shiftX(), area.shiftY()});
    }
    EXPECT_GT(places.size(), 150U);
    const auto far = [](const auto& at) {
      return std::abs(at.first) > 12 || std::abs(at.second) > 12;
    };
    EXPECT_FALSE(std::ranges::any_of(places, far));
  });
  pass(4);
}

TEST_F(Ads, AreMaintainedOnTheirForm) {
  open("AdWake=YES\n");  // and there is no directory
  host->onModal(u"frmSetup"_s, [this](Form& setup) {
    const auto slider = [](Form& of, const QString& name) -> Slider& {
      return dynamic_cast<Slider&>(*of.find(name));
    };
    host->onModal(u"frmAdds"_s, [&](Form& adds) {
      EXPECT_FALSE(dynamic_cast<Check*>(adds.find(u"chkaddson"))->checked());
      EXPECT_EQ(slider(adds, u"seconds"_s).value(), 3);
      EXPECT_EQ(slider(adds, u"between"_s).value(), 2);
      EXPECT_FALSE(canPress(adds, u"seconds"_s) || canPress(adds, u"between"_s));
      EXPECT_EQ(textOf(adds, u"lblpath"_s), u"Adds must be placed in "_s + home / u"ADDS"_s);
      ad(u"a.jpg"_s);
      tick(adds, u"chkaddson"_s, true);
      EXPECT_TRUE(canPress(adds, u"seconds"_s));
      slider(adds, u"seconds"_s).moveTo(1000);
      EXPECT_EQ(textOf(adds, u"lblSeconds"_s), u"360"_s);
      slider(adds, u"seconds"_s).moveTo(7);
      slider(adds, u"between"_s).moveTo(60);
      diskCalls.full = true;
      answer(u"The disk is full"_s);
      korvane::press(adds, u"cmdok"_s);
      EXPECT_TRUE(adds.shown());
      diskCalls.full = false;
      korvane::press(adds, u"cmdok"_s);
      EXPECT_FALSE(adds.shown());
    });
    korvane::press(setup, u"cmdAddDir"_s, 5);
  });
  console().custom.setup.open();
  system().pump.settle();
  const QByteArray ini = home.get(u"Morvanta.INI"_s);
  for (const char* line : {"ADDSON=YES", "ADDSTART=7", "ADDSBETWEEN=60"})
    EXPECT_TRUE(ini.contains(line)) << line;
  EXPECT_TRUE(console().desk.state.gAddsOn);
  EXPECT_EQ(secondsToShow(), 8);
}

}  // namespace
}  // namespace korvane
