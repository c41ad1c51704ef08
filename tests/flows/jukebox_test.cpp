#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class JukeboxMode : public CabinTest {
 protected:
  explicit JukeboxMode(const QByteArray& settings = {}) {
    givenDays();
    setting("LOCALLISTENER=1\n" + settings);
    start();
    openAlbum(1, 1);
  }

  QStringList queue() {
    QStringList paths;
    const auto& list = console().library.database.rsPlaySongs;
    for (int record = 1; record <= list.RecordCount(); ++record) paths << list.at(record).Path;
    EXPECT_EQ(column(grid(6), 4), paths) << "the queue is the play list, row for row";
    return column(grid(6), 1);
  }
  QString count(int n) { return u"Jukebox!   number of selections (%1)"_s.arg(n); }
};

TEST_F(JukeboxMode, SelectionsQueuePlayThroughAndLeave) {
  press(u"optMode"_s, 1);
  EXPECT_EQ(caption(u"lblCurrentPlayList"_s), u"Jukebox on  number of selections (0)"_s);
  EXPECT_EQ(picture(u"optMode"_s, 0) + picture(u"optMode"_s, 1), u"normaloffjukeboxon"_s);
  EXPECT_EQ(picture(u"cmdTop"_s, 2), u"jukebox"_s);
  EXPECT_EQ(picture(u"cmdControls"_s, 5), u"delete"_s);
  EXPECT_FALSE(shown(u"cmdControls"_s, 0) || shown(u"cmdControls"_s, 7));
  playRow(1, 2);
  EXPECT_EQ(playing(), u"002-Noon"_s) << "the first selection on silence starts by itself";
  playRow(1, 3);
  playRow(1, 2);
  EXPECT_EQ(playing(), u"002-Noon"_s);
  press(u"cmdTop"_s, 6);  // pages that are only looked at
  press(u"cmdTop"_s, 3);
  openAlbum(1, 1);
  EXPECT_EQ(queue(), (QStringList{u"Noon"_s, u"Dusk"_s, u"Noon"_s})) << "twice is no fault";
  EXPECT_EQ(caption(u"lblCurrentPlayList"_s), count(3));
  songEnds();
  EXPECT_EQ(playing(), u"003-Dusk"_s);
  press(u"cmdControls"_s, 4);
  EXPECT_EQ(playing(), u"002-Noon"_s) << "next skips: the selection leaves too";
  EXPECT_EQ(queue(), QStringList{u"Noon"_s});
  songEnds();
  EXPECT_EQ(queue(), QStringList());
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
  EXPECT_EQ(caption(u"lblCurrentPlayList"_s), count(0));
  playRow(1, 1);
  EXPECT_EQ(playing(), u"001-Dawn"_s) << "an empty queue starts anew";
}

TEST_F(JukeboxMode, TheRunningSongBecomesTheFirstSelectionAndTheModeLeavesNothing) {
  playRow(1, 1);
  const auto opened = player.calls.size();
  press(u"optMode"_s, 1);
  EXPECT_EQ(caption(u"lblCurrentPlayList"_s), count(1));
  EXPECT_EQ(queue(), QStringList{u"001-Dawn"_s});
  EXPECT_EQ(player.calls.filter(QRegularExpression(u"^open "_s)).size(), 1) << opened;
  press(u"optMode"_s, 1);
  EXPECT_EQ(queue().size(), 1) << "a second press on the mode that is on";
  press(u"cmdTop"_s, 2);
  EXPECT_TRUE(shown(u"Grid"_s, 6));
  press(u"optMode"_s, 0);
  EXPECT_TRUE(shown(u"Grid"_s, 0)) << "the queue's page goes with the mode";
  EXPECT_EQ(caption(u"lblCurrentPlayList"_s), QString());
  EXPECT_EQ(picture(u"cmdControls"_s, 5) + picture(u"cmdTop"_s, 2), u"repeatplaylist"_s);
  EXPECT_TRUE(shown(u"cmdControls"_s, 0) && shown(u"cmdControls"_s, 7));
  EXPECT_EQ(console().library.database.rsPlaySongs.RecordCount(), 0);
}

TEST_F(JukeboxMode, ADeletedSelectionIsNotPlayedAndNoOtherIsLost) {
  press(u"optMode"_s, 1);
  for (const int row : {1, 2, 3}) playRow(1, row);
  press(u"cmdTop"_s, 2);
  pressRow(6, 2);
  press(u"cmdControls"_s, 5);
  EXPECT_EQ(queue(), (QStringList{u"Dawn"_s, u"Dusk"_s}));
  pressRow(6, 1);
  press(u"cmdControls"_s, 5);
  EXPECT_EQ(playing(), u"001-Dawn"_s) << "the song that plays goes on";
  songEnds();
  EXPECT_EQ(playing(), u"003-Dusk"_s);
  EXPECT_EQ(queue(), QStringList{u"Dusk"_s});
  press(u"cmdControls"_s, 5);
  press(u"cmdControls"_s, 5);
  songEnds();
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
}

TEST_F(JukeboxMode, RandomBringsTheDrawnSelectionToTheTop) {
  press(u"optMode"_s, 1);
  for (const int row : {1, 2, 3}) playRow(1, row);
  press(u"cmdControls"_s, 6);
  QStringList heard{playing()};
  for (int i = 0; i < 2; ++i) {
    songEnds();
    heard << playing();
    EXPECT_EQ(u"00%1-"_s.arg(heard.last()[2]) + queue().value(0), heard.last());
    if (i == 0) playRow(1, 1);  // an addition does not move the song that plays
  }
  songEnds();
  EXPECT_EQ(queue().size(), 1);
  heard.sort();
  EXPECT_EQ(heard.size(), 3);
}

class LockedJukebox : public JukeboxMode {
 protected:
  LockedJukebox()
      : JukeboxMode(
            "JukeboxLock=YES\nSetup=4711\nShowExit=1\nShowMin=1\nShowSetup=1\nLocalServer=1\n"
            "ShowMute=1\n") {}
};

TEST_F(LockedJukebox, GuestsQueueAndOnlyThePasswordSkips) {
  press(u"optMode"_s, 1);
  for (const int row : {1, 2, 3}) playRow(1, row);
  EXPECT_FALSE(control(u"Slider1"_s).enabled());
  const struct {
    const char* name;
    int index;
  } refused[] = {{"cmdControls", 3},  {"cmdControls", 4}, {"cmdControls", 5},
                 {"optMode", 0},      {"cmdSetup", -1},   {"imgExit", -1},
                 {"cmdMinimize", -1}, {"mute", -1},       {"lblMusicPlay", 0}};
  for (const auto& [name, index] : refused) {
    typed({}, true);
    press(QString::fromLatin1(name), index);
    EXPECT_TRUE(host->allDone()) << name << " did not ask";
  }
  home.put(u"PlayLists/Evening.m3u"_s, "a.mp3\n");
  for (const int choice : {0, 2, 3, 4}) {  // use, rename, delete and edit a list
    host->onModal(u"frmPlayList"_s, [&](Form& lists) {
      typed({}, true);
      korvane::press(lists, u"cmdPlayListChoices"_s, choice);
      korvane::press(lists, u"cmdPlayListChoices"_s, 1);
    });
    press(u"cmdPlayLists"_s);
    EXPECT_TRUE(host->allDone()) << "choice " << choice << " did not ask";
  }
  typed({}, true);
  Form& network = console().listener.network.form();
  korvane::press(network, u"cmdAble"_s, 0);
  EXPECT_TRUE(host->allDone()) << "the network's choice did not ask";
  EXPECT_EQ(queue().size(), 3);
  EXPECT_EQ(playing(), u"001-Dawn"_s);
  EXPECT_TRUE(console().desk.state.jukeboxMode);
  press(u"cmdControls"_s, 2);  // pause is free

  typed(u"4711"_s, true);
  press(u"cmdControls"_s, 4);
  EXPECT_EQ(playing(), u"002-Noon"_s);
  EXPECT_TRUE(control(u"Slider1"_s).enabled());
  press(u"cmdControls"_s, 4);  // open for a while
  ASSERT_TRUE(form().fire(control(u"LockTimer"_s), {Event::Tick}));
  typed({}, true);
  press(u"cmdControls"_s, 4);
  EXPECT_TRUE(host->allDone()) << "and locked again";
  EXPECT_EQ(playing(), u"003-Dusk"_s);
}

}  // namespace
}  // namespace korvane
