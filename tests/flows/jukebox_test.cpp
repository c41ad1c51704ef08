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

  void queueAll() {
    press(u"optMode"_s, 1);
    for (const int row : {1, 2, 3}) playRow(1, row);
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
  EXPECT_FALSE(shown(u"cmdControls"_s, 0) || shown(u"cmdControls"_s, 7));
  playRow(1, 2);
  EXPECT_EQ(playing(), u"002-Noon"_s) << "the first selection on silence starts by itself";
  playRow(1, 3);
  playRow(1, 2);
  EXPECT_EQ(playing(), u"002-Noon"_s);
  for (const int looked : {6, 3}) openPage(looked);
  openAlbum(1, 1);
  EXPECT_EQ(queue(), (QStringList{u"Noon"_s, u"Dusk"_s, u"Noon"_s})) << "twice is no fault";
  songEnds();
  EXPECT_EQ(playing(), u"003-Dusk"_s);
  press(u"cmdControls"_s, 4);
  EXPECT_EQ(playing(), u"002-Noon"_s) << "next skips: the selection leaves too";
  EXPECT_EQ(queue(), QStringList{u"Noon"_s});
  songEnds();
  EXPECT_EQ(queue(), QStringList());
  EXPECT_EQ(caption(u"lblCurrentPlayList"_s), count(0));
  playRow(1, 1);
  EXPECT_EQ(playing(), u"001-Dawn"_s) << "an empty queue starts anew";
}

TEST_F(JukeboxMode, TheRunningSongBecomesTheFirstSelectionAndTheModeLeavesNothing) {
  playRow(1, 1);
  for (int presses = 0; presses < 2; ++presses) {  // the second on the mode that is on
    press(u"optMode"_s, 1);
    EXPECT_EQ(caption(u"lblCurrentPlayList"_s), count(1));
    EXPECT_EQ(queue(), QStringList{u"001-Dawn"_s});
  }
  EXPECT_EQ(player.calls.filter(u"open "_s).size(), 1);
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
  queueAll();
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
}

TEST_F(JukeboxMode, RandomBringsTheDrawnSelectionToTheTop) {
  queueAll();
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
}

class LockedJukebox : public JukeboxMode {
 protected:
  LockedJukebox()
      : JukeboxMode(
            "JukeboxLock=YES\nSetup=4711\nShowExit=1\nShowMin=1\nShowSetup=1\nLocalServer=1\n"
            "ShowMute=1\n") {}
};

TEST_F(LockedJukebox, GuestsQueueAndOnlyThePasswordSkips) {
  queueAll();
  EXPECT_FALSE(control(u"Slider1"_s).enabled());
  const std::pair<QString, int> refused[] = {
      {u"cmdControls"_s, 3},  {u"cmdControls"_s, 4}, {u"cmdControls"_s, 5},
      {u"optMode"_s, 0},      {u"cmdSetup"_s, -1},   {u"imgExit"_s, -1},
      {u"cmdMinimize"_s, -1}, {u"mute"_s, -1},       {u"lblMusicPlay"_s, 0}};
  for (const auto& [name, index] : refused) {
    typed({}, true);
    press(name, index);
    EXPECT_TRUE(host->allDone()) << name.toStdString() << " did not ask";
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
  korvane::press(console().listener.network.form(), u"cmdAble"_s, 0);
  EXPECT_TRUE(host->allDone()) << "the network's choice did not ask";
  EXPECT_EQ(queue().size(), 3);
  EXPECT_EQ(playing(), u"001-Dawn"_s);
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
