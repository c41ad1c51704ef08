#include "tests/flows/cabin.h"

namespace korvane {
namespace {

using Tabs = CabinTest;

TEST_F(Tabs, EachTabShowsItsOwnFromWhicheverBefore) {
  setting("DisplayVolume=0\nShowMute=1\nLocalServer=1\nShowMap=1\nShowControl=1\nMaps=1\n");
  start();
  using Names = std::vector<std::pair<const char*, int>>;
  const struct {
    int tab;
    Names shown, hidden;
  } table[] = {
      {kMusicTab,
       {{"cmdTop", 0},
        {"cmdControls", 7},
        {"Slider1", -1},
        {"lblMusicPlay", 1},
        {"optMode", 0},
        {"mute", -1}},
       {{"lblVolume", -1}, {"MovieList", -1}}},
      {kMoviesTab,
       {{"MovieList", -1}, {"cmdControls", 1}, {"lblMoviesPlay", 0}},
       {{"cmdTop", 0}, {"cmdControls", 0}, {"Grid", 0}}},
      {kPhotosTab,
       {{"PhotoList", -1}, {"lblVolume", -1}, {"scrollDelay", -1}},
       {{"MovieList", -1}}},
      {kMainTab,
       {},
       {{"cmdControls", 1}, {"cmdTop", 0}, {"Slider1", -1}, {"lblCurrentPlayList", -1}}},
      {kMapsTab, {{"MappointControl", -1}}, {{"cmdControls", 1}, {"Grid", 0}}},
      {kMoreTab, {}, {{"framex10", -1}, {"cmdControls", 1}, {"MappointControl", -1}}},
  };
  for (int i = 0; i < 13; ++i) answer({});
  for (int before = 0; before < 6; ++before)
    for (const auto& [tab, seen, unseen] : table) {
      press(u"imgTabs"_s, before);
      press(u"imgTabs"_s, tab);
      SCOPED_TRACE(u"tab %1 from %2"_s.arg(tab).arg(before).toStdString());
      for (const auto& [name, index] : seen)
        EXPECT_TRUE(shown(QString::fromLatin1(name), index)) << name << index;
      for (const auto& [name, index] : unseen)
        EXPECT_FALSE(shown(QString::fromLatin1(name), index)) << name << index;
      EXPECT_TRUE(control(u"imgTabs"_s, tab).tagged());
    }
}

TEST_F(Tabs, PhotosKeepTheScreenAwakeWhileOpen) {
  start();
  const ScreenPower::Saved before = system().screenPower.values;
  answer(u"Photos directory has not be set up"_s);
  press(u"imgTabs"_s, kPhotosTab);
  EXPECT_FALSE(system().screenPower.screenSaverActive);
  EXPECT_FALSE(system().screenPower.values.powerOffActive);
  EXPECT_EQ(system().screenPower.values.powerOffTimeout, 999);
  dynamic_cast<Slider&>(control(u"scrollDelay"_s)).value = 7;
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_TRUE(system().screenPower.screenSaverActive);
  EXPECT_EQ(system().screenPower.values.powerOffTimeout, before.powerOffTimeout);
  EXPECT_TRUE(home.get(u"Morvanta.INI"_s).contains("Delay=7"));
}

TEST_F(Tabs, ARunningPressRefusesATab) {
  start();
  console().desk.screen.MousePointer = Screen::Hourglass;
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_EQ(console().desk.state.currentTab, kMainTab);
}

TEST_F(Tabs, MovedControlsComeBackAndBadLinesAreSkipped) {
  home.put(u"krvgraphics/TEST/positons.txt"_s,
           "Slider1@@#300@@#610\nimgTabs@@#20@@#30@@#2\nnobody@@#1@@#2\nlonely\n\nmute@@#1000\n");
  start();
  EXPECT_EQ(slider().rect().left, 300);
  EXPECT_EQ(control(u"imgTabs"_s, 2).rect().top, 30);
  EXPECT_EQ(control(u"mute"_s).rect().left, 1000);
}

}  // namespace
}  // namespace korvane
