#include "tests/flows/cabin.h"

namespace korvane {
namespace {

using Tabs = CabinTest;

TEST_F(Tabs, EachTabShowsItsOwnFromWhicheverBefore) {
  setting("DisplayVolume=0\nShowMute=1\nLocalServer=1\nShowMap=1\nShowControl=1\nMaps=1\n");
  start();
  const struct {
    int tab;
    QString shown, hidden;
  } table[] = {{kMusicTab, u"cmdTop/0 cmdControls/7 Slider1 lblMusicPlay/1 optMode/0 mute"_s,
                u"lblVolume MovieList"_s},
               {kMoviesTab, u"MovieList cmdControls/1 lblMoviesPlay/0"_s,
                u"cmdTop/0 cmdControls/0 Grid/0"_s},
               {kPhotosTab, u"PhotoList lblVolume scrollDelay"_s, u"MovieList"_s},
               {kMainTab, u"imgTabs/3"_s, u"cmdControls/1 cmdTop/0 Slider1 lblCurrentPlayList"_s},
               {kMapsTab, u"MappointControl"_s, u"cmdControls/1 Grid/0 lblNote/1"_s},
               {kMoreTab, u"lblNote/1"_s, u"framex10 cmdControls/1 MappointControl"_s}};
  const auto expect = [this](const QString& names, bool visible) {
    for (const QString& name : names.split(u' ')) {
      const QString index = name.section(u'/', 1);
      EXPECT_EQ(shown(name.section(u'/', 0, 0), index.isEmpty() ? -1 : index.toInt()), visible)
          << name.toStdString();
    }
  };
  for (int i = 0; i < 3; ++i) answer({});  // Photos: the first time, and pressed while open
  for (int before = 0; before < 6; ++before)
    for (const auto& [tab, seen, unseen] : table) {
      press(u"imgTabs"_s, before);
      press(u"imgTabs"_s, tab);
      SCOPED_TRACE(u"tab %1 from %2"_s.arg(tab).arg(before).toStdString());
      expect(seen, true);
      expect(unseen, false);
      EXPECT_TRUE(control(u"imgTabs"_s, tab).tagged());
    }
  EXPECT_TRUE(host->allDone());
  console().desk.screen.MousePointer = Screen::Hourglass;
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_TRUE(console().desk.tabs.open(kMoreTab)) << "another press is at work";
}

TEST_F(Tabs, APageThatIsNotSetUpSaysSoInItsPlace) {
  setting("ShowMap=1\nShowControl=1\n");
  start();
  const auto emptyText = [this](const char* name) {
    return dynamic_cast<Grid&>(control(QString::fromLatin1(name))).emptyText();
  };
  answer(u"Photos directory has not be set up"_s);
  for (const int tab : {kPhotosTab, kMoviesTab, kPhotosTab}) press(u"imgTabs"_s, tab);
  answer(u"Photos directory has not be set up"_s);
  press(u"imgTabs"_s, kPhotosTab);  // whoever presses the open tab reads it again
  EXPECT_TRUE(host->allDone());
  EXPECT_TRUE(emptyText("PhotoList").contains("Setup Photos Directory"_L1));
  EXPECT_TRUE(emptyText("MovieList").contains("Movies Setup"_L1));
  press(u"imgTabs"_s, kMapsTab);
  EXPECT_TRUE(shown(u"lblNote"_s, 0) && !shown(u"MappointControl"_s));
  press(u"imgTabs"_s, kMoreTab);
  EXPECT_TRUE(shown(u"lblNote"_s, 1) && !shown(u"lblNote"_s, 0));
  EXPECT_TRUE(control(u"lblNote"_s, 1).caption().contains("Show X10 Controls"_L1));
  console().desk.state.gX10 = u"YES"_s;
  press(u"imgTabs"_s, kMoreTab);
  EXPECT_TRUE(shown(u"framex10"_s) && !shown(u"lblNote"_s, 1));
}

TEST_F(Tabs, AReloadKeepsWhatIsLit) {
  givenDays();
  setting("LOCALLISTENER=1\nShowMute=1\n");
  start();
  openAlbum(1, 1);
  playRow(1, 1);
  press(u"optMode"_s, 1);
  press(u"cmdControls"_s, static_cast<int>(TransportButton::Random));
  press(u"mute"_s);
  const auto lit = [this] {
    QStringList pictures{picture(u"mute"_s)};
    for (const QString& name : {u"cmdControls"_s, u"cmdTop"_s, u"optMode"_s})
      for (int i = 0; i <= form().upperBound(name); ++i) pictures << picture(name, i);
    return pictures;
  };
  const QStringList before = lit();
  for (const QString& name : {u"playb"_s, u"randomb"_s, u"delete"_s, u"muteb"_s, u"jukebox"_s,
                              u"jukeboxon"_s, u"normaloff"_s})
    EXPECT_TRUE(before.contains(name)) << name.toStdString();
  const Colours queue = grid(6).colours();
  console().desk.startup.Form_Load();
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_EQ(lit(), before);
  EXPECT_EQ(grid(6).columns().size(), 4u);
  EXPECT_EQ(grid(6).colours(), queue);
}

TEST_F(Tabs, AListWearsAColourThatItsOwnerHasChanged) {
  givenDays();
  start();
  openPage(1);
  EXPECT_NE(grid(4).colours().back, 255u);
  console().desk.settings.writeSetting(u"COLORS", u"MUSICGRIDBACK", u"255"_s);
  press(u"cmdTop"_s, 1);
  EXPECT_EQ(grid(4).colours().back, 255u);
}

TEST_F(Tabs, TheCameraShowsWhereItsProgramIs) {
  setting("HomePanel=YES\n");
  for (const bool there : {false, true}) {
    if (there) home.put(u"krvCamera.exe"_s, "x");
    start();
    EXPECT_EQ(shown(u"pCamera"_s), there);
    const Rect panel = control(u"frameHome"_s).rect();
    EXPECT_EQ(control(u"pCamera"_s).rect().left >= panel.right(), there) << "the home page's panel";
    press(u"imgTabs"_s, kMusicTab);
    EXPECT_FALSE(shown(u"pCamera"_s));
  }
}

TEST_F(Tabs, PhotosKeepTheScreenAwakeWhileOpen) {
  start();
  const auto& power = system().screenPower;
  const auto before = power.values.powerOffTimeout;
  answer(u"Photos directory has not be set up"_s);
  press(u"imgTabs"_s, kPhotosTab);
  EXPECT_FALSE(power.screenSaverActive || power.values.powerOffActive);
  EXPECT_EQ(power.values.powerOffTimeout, 999);
  dynamic_cast<Slider&>(control(u"scrollDelay"_s)).value = 7;
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_TRUE(power.screenSaverActive);
  EXPECT_EQ(power.values.powerOffTimeout, before);
  EXPECT_TRUE(home.get(u"Morvanta.INI"_s).contains("Delay=7"));
}

// Every control that an owner can drag comes back to where it was left, in units of the design:
// on any surface it keeps its distance to the edges that it follows.
TEST_F(Tabs, MovedControlsStandRightOnAnySurface) {
  const QStringList movable =
      u"imgTabs cmdTop cmdControls cmdOneSong lblMusicPlay lblMusicType lblMoviesPlay lblMovieType "
      "lblVolume lblDuration lblCurrentPlay lblCurrentPlayList mute optMode cmdFavoriateAdd "
      "cmdMovieFullScreen cmdSetup imgExit cmdMinimize cmdRemoteDVD cmdPhotoSetup "
      "cmdPlayListChoices cmdPlayListCommands pCamera MoviePic framex10 frameButtons framSongEdit "
      "Grid gridPlayListSongs MovieList PhotoList playlistslider VscrollAllSongs cmdSaveControls "
      "cmdCancelMoveControls"_s.split(u' ');
  Form plain(u"frmMain"_s, mainInventory());
  QByteArray file;
  std::vector<const Control*> moved;
  for (const auto& it : plain.controls()) {
    if (!movable.contains(it->name)) continue;
    moved.push_back(it.get());
    const QString index = it->index < 0 ? QString() : u"@@#"_s + QString::number(it->index);
    file += u"%1@@#%2@@#%3%4\n"_s
                .arg(it->name, QString::number(it->design.left + 6),
                     QString::number(it->design.top + 4), index)
                .toUtf8();
  }
  home.put(u"krvgraphics/TEST/positons.txt"_s, file);
  setting("ShowMap=1\nShowControl=1\n");
  start([](Console& console) { console.desk.frmMain.resize(1600, 900); });
  for (const auto& [width, height] : {std::pair{1600, 900}, {1280, 768}, {1280, 1024}}) {
    form().resize(width, height);
    plain.resize(width, height);
    for (const Control* it : moved) {
      Rect expected = it->rect();
      expected.left += 6;
      expected.top += 4;
      EXPECT_EQ(control(it->name, it->index).rect(), expected)
          << qUtf8Printable(it->name) << it->index << " at " << width << 'x' << height;
    }
  }
}

TEST_F(Tabs, LinesOfMovedControlsThatMeanNoneAreSkipped) {
  home.put(u"krvgraphics/TEST/positons.txt"_s,
           "nobody@@#1@@#2\nlonely\n\nimgTabs@@#20@@#30\nimgTabs@@#20@@#30@@#9\n"
           "mute@@#1000.5\nlblVolume@@#7@@#8\n");
  start([](Console& console) { console.desk.frmMain.find(u"lblVolume")->tag = u"no"_s; });
  EXPECT_EQ(control(u"mute"_s).rect().left, 1000);
  EXPECT_EQ(control(u"lblVolume"_s).rect().left, 1110) << "its Tag keeps it in its place";
  for (const int tab : {0, 1, 3}) EXPECT_EQ(control(u"imgTabs"_s, tab).rect().left, 4);
}

}  // namespace
}  // namespace korvane
