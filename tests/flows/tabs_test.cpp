#include "tests/flows/cabin.h"

namespace korvane {
namespace {

using Tabs = CabinTest;

// What shows after the tab was pressed, from whichever tab before.
TEST_F(Tabs, EachTabShowsItsOwn) {
  setting("DisplayVolume=0\nShowMute=1\nLocalServer=1\nShowMap=1\nShowControl=1\nMaps=1\n");
  start();
  struct Seen {
    int tab;
    const char* control;
    int index;
    bool visible;
  };
  const Seen table[] = {
      {kMusicTab, "cmdTop", 0, true},
      {kMusicTab, "cmdControls", 7, true},
      {kMusicTab, "Slider1", -1, true},
      {kMusicTab, "lblMusicPlay", 1, true},
      {kMusicTab, "optMode", 0, true},
      {kMusicTab, "lblVolume", -1, false},
      {kMusicTab, "mute", -1, true},
      {kMusicTab, "MovieList", -1, false},
      {kMoviesTab, "MovieList", -1, true},
      {kMoviesTab, "cmdTop", 0, false},
      {kMoviesTab, "cmdControls", 0, false},
      {kMoviesTab, "cmdControls", 1, true},
      {kMoviesTab, "Grid", 0, false},
      {kMoviesTab, "lblMoviesPlay", 0, true},
      {kPhotosTab, "PhotoList", -1, true},
      {kPhotosTab, "lblVolume", -1, true},
      {kPhotosTab, "MovieList", -1, false},
      {kPhotosTab, "scrollDelay", -1, true},
      {kMainTab, "cmdControls", 1, false},
      {kMainTab, "cmdTop", 0, false},
      {kMainTab, "Slider1", -1, false},
      {kMainTab, "lblCurrentPlayList", -1, false},
      {kMapsTab, "MappointControl", -1, true},
      {kMapsTab, "cmdControls", 1, false},
      {kMapsTab, "Grid", 0, false},
      {kMoreTab, "framex10", -1, false},
      {kMoreTab, "cmdControls", 1, false},
      {kMoreTab, "MappointControl", -1, false},
  };
  host->onModal(u"frmMsgBox"_s, [](Form& box) { korvane::press(box, u"cmdControls"_s, 2); });
  for (int i = 0; i < 12; ++i)
    host->onModal(u"frmMsgBox"_s, [](Form& box) { korvane::press(box, u"cmdControls"_s, 2); });
  for (int before = 0; before < 6; ++before)
    for (int tab = 0; tab < 6; ++tab) {
      press(u"imgTabs"_s, before);
      press(u"imgTabs"_s, tab);
      for (const Seen& seen : table) {
        if (seen.tab != tab) continue;
        EXPECT_EQ(shown(QString::fromLatin1(seen.control), seen.index), seen.visible)
            << seen.control << seen.index << " on tab " << tab << " from " << before;
      }
      EXPECT_TRUE(control(u"imgTabs"_s, tab).tagged());
    }
}

TEST_F(Tabs, PhotosKeepTheScreenAwakeWhileOpen) {
  start();
  const ScreenPower::Saved before = system().screenPower.values;
  host->onModal(u"frmMsgBox"_s, [](Form& box) {
    EXPECT_TRUE(textOf(box, u"msg"_s).startsWith(u"Photos directory has not be set up"_s));
    korvane::press(box, u"cmdControls"_s, 2);
  });
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

TEST_F(Tabs, ARunningPressAndOpenButtonToolsRefuseATab) {
  start();
  console().screen.MousePointer = Screen::Hourglass;
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_EQ(console().state.currentTab, kMainTab);
  console().screen.MousePointer = Screen::Custom;
  control(u"frameButtons"_s).visible = true;
  host->onModal(u"frmMsgBox"_s, [](Form& box) {
    EXPECT_EQ(textOf(box, u"msg"_s),
              u"You need to finish the custom buttons before proceeding to other tabs."_s);
    korvane::press(box, u"cmdControls"_s, 2);
  });
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_EQ(console().state.currentTab, kMainTab);
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
