// The owner's buttons and the home page in a whole console.
#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class HomePage : public CabinTest {
 protected:
  void startWith(const QList<QByteArray>& actions, const QByteArray& settings = {}) {
    QByteArray file;
    int left = 160;
    for (const QByteArray& action : actions) {
      file +=
          action + "@@#" + QByteArray::number(left) + "@@#300@@#" + action + "@@#100@@#100@@#12\n";
      left += 110;
    }
    home.put(u"krvgraphics/TEST/Buttonpositons.txt"_s, file);
    setting("ShowMap=1\nShowControl=1\nLOCALLISTENER=1\n" + settings);
    start();
  }
};

TEST_F(HomePage, EachActionOpensItsPage) {
  given(u"A"_s, u"First"_s, u"one"_s);
  startWith({"MUSIC", "MOVIES", "PHOTOS", "MAPS", "MORE", "ARTISTS", "ALBUMS", "SONGS",
             "FAVOURITES", "PLAYLISTS"});
  const std::tuple<int, int, int> table[] = {
      {1, kMusicTab, -1}, {2, kMoviesTab, -1}, {3, kPhotosTab, -1}, {4, kMapsTab, -1},
      {5, kMoreTab, -1},  {6, kMusicTab, 0},   {7, kMusicTab, 4},   {8, kMusicTab, 5},
      {9, kMusicTab, 8},  {10, kMusicTab, 6}};
  answer(u"Photos directory"_s);
  for (const auto& [button, tab, list] : table) {
    press(u"imgTabs"_s, kMainTab);
    ASSERT_TRUE(shown(u"cmdbutton"_s, button));
    press(u"cmdbutton"_s, button);
    EXPECT_TRUE(console().desk.tabs.open(tab)) << "button " << button;
    EXPECT_FALSE(shown(u"cmdbutton"_s, button)) << "the buttons are the Main tab's";
    EXPECT_TRUE(list < 0 || shown(u"Grid"_s, list)) << "button " << button;
  }
}

TEST_F(HomePage, RestartAndShutdownAskFirst) {
  startWith({"restart", "Shutdown"});
  for (const auto& [button, said] : {std::pair{1, No}, {1, Yes}, {2, Yes}}) {
    answer(u"Do you want to shut down?"_s, said);
    press(u"cmdbutton"_s, button);
  }
  EXPECT_EQ(system().session.asked, (std::vector{6, 9}));
}

TEST_F(HomePage, WhatIsNotThereIsSaidInWords) {
  startWith({"CONNECT", "SHUFFLE", "RIPPER"});
  const auto says = [this](int button, const QString& words) {
    answer(words);
    press(u"cmdbutton"_s, button);
  };
  says(1, u"Master Listener is not running, unable to connect."_s);
  says(2, u"no song in the library"_s);
  press(u"imgTabs"_s, kMainTab);
  host->onModal(u"frmRipper"_s, [](Form& ripper) {
    EXPECT_EQ(textOf(ripper, u"StatusBar"_s), u"No audio cd found"_s);
  });
  press(u"cmdbutton"_s, 3);
}

TEST_F(HomePage, PlaysAnySongAndWhatWasStoppedAgain) {
  for (const QString& title : {u"one"_s, u"two"_s, u"three"_s})
    given(u"Odd Kestrel"_s, u"A"_s, title);
  startWith({"SHUFFLE", "PLAYPAUSE"}, "HomePanel=YES\n");
  press(u"cmdHome"_s, 1);
  EXPECT_TRUE(control(u"cmdControls"_s, 6).tagged()) << "in any order";
  press(u"imgTabs"_s, kMainTab);
  for (const QString& next : {u"play"_s, u"pause"_s}) {
    press(u"cmdbutton"_s, 2);
    EXPECT_EQ(picture(u"cmdHome"_s, 1), next);
  }
  auto calls = player.calls.size();
  songEnds();
  EXPECT_GT(player.calls.size(), calls);
  EXPECT_EQ(caption(u"lblHomeTitle"_s), playing()) << "the next song shows by itself";
  calls = player.calls.size();
  press(u"cmdHome"_s, 0);
  EXPECT_GT(player.calls.size(), calls) << "the one before";
  const QString stopped = playing();
  console().desk.players.press(console().playback.transport, TransportButton::Stop);
  system().pump.settle();
  EXPECT_EQ(caption(u"lblHomeTitle"_s), u"Nothing is playing"_s);
  press(u"cmdHome"_s, 1);
  EXPECT_EQ(playing(), stopped) << "what was stopped plays again";
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_FALSE(shown(u"frameHome"_s) || control(u"HomeTimer"_s).enabled());
}

TEST_F(HomePage, SetupOpensTheToolsAndTheyHoldTheTab) {
  startWith({"MUSIC"}, "ShowSetup=1\n");
  host->onModal(u"frmSetup"_s, [](Form& setup) { korvane::press(setup, u"cmdButtons"_s); });
  press(u"cmdSetup"_s);
  answer(u"You need to finish the custom buttons before proceeding to other tabs."_s);
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_TRUE(console().desk.tabs.open(kMainTab));
  answer(u"You need to finish the custom buttons before proceeding to setup."_s);
  press(u"cmdSetup"_s);
  EXPECT_TRUE(host->allDone());
}

TEST_F(HomePage, TheFirstEntryCannotBeChosen) {
  startWith({"MUSIC"});
  console().custom.buttonEditor.open();
  press(u"cmdButtonAdd"_s);
  answer(u"Select a file first"_s);
  host->onModal(u"frmDirectorys"_s, [&](Form& chooser) {
    dynamic_cast<Grid&>(*chooser.find(u"customSelect")).row = 1;
    korvane::press(chooser, u"cmdok"_s);
    korvane::press(chooser, u"cmdCancel"_s);
  });
  press(u"cmdButtonAction"_s);
  EXPECT_EQ(control(u"cmdbutton"_s, 2).tag(), QString()) << "cancelled";
}

}  // namespace
}  // namespace korvane
