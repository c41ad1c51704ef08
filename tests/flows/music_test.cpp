#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class Music : public CabinTest {
 protected:
  Music() {
    for (const char* title : {"001-Dawn", "002-Noon", "003-Dusk"})
      given(u"Ada"_s, u"Days"_s, QString::fromLatin1(title));
    given(u"Ada"_s, u"Nights"_s, u"Moon"_s);
    given(u"Bo"_s, u"Only"_s, u"One"_s);
    setting("LOCALLISTENER=1\n");
  }
  void playDays(int row) {
    openAlbum(1, 1);
    playRow(1, row);
  }
};

TEST_F(Music, FromArtistToAlbumToSongToSound) {
  start();
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_TRUE(shown(u"Grid"_s, 0));
  EXPECT_EQ(grid(0).cell(1, 1), u"Ada"_s);
  pressRow(0, 1);
  EXPECT_TRUE(shown(u"Grid"_s, 2));
  EXPECT_EQ(grid(2).maxRows(), 2);
  pressRow(2, 1);
  EXPECT_TRUE(shown(u"Grid"_s, 1));
  EXPECT_EQ(grid(1).header(), u"Ada - Days"_s);
  EXPECT_EQ(grid(1).cell(1, 2), u"Noon"_s);
  playRow(1, 2);
  EXPECT_EQ(playing(), u"002-Noon"_s);
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Playing: 002-Noon"_s);
  EXPECT_EQ(picture(u"cmdControls"_s, 1), u"playb"_s);
  EXPECT_EQ(console().state.gPlayMode, 2);
  EXPECT_TRUE(home.get(u"Morvanta.INI"_s).contains("002-Noon.mp3"));
}

TEST_F(Music, TheEndOfASongTakesTheNextAndTheLastGoesIdle) {
  start();
  playDays(2);
  songEnds();
  EXPECT_EQ(playing(), u"003-Dusk"_s);
  EXPECT_EQ(grid(1).row(), 3);
  songEnds();
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
  EXPECT_EQ(slider().text(), u"--:--:--"_s);
  EXPECT_EQ(picture(u"cmdControls"_s, 3), u"stopb"_s);
}

TEST_F(Music, ModesExcludeEachOtherAndChooseTheNextSong) {
  start();
  playDays(3);
  press(u"cmdControls"_s, 7);
  EXPECT_EQ(picture(u"cmdControls"_s, 7), u"continue on"_s);
  songEnds();
  EXPECT_EQ(playing(), u"001-Dawn"_s);
  press(u"cmdControls"_s, 5);
  EXPECT_EQ(picture(u"cmdControls"_s, 7), u"continue off"_s);
  songEnds();
  EXPECT_EQ(playing(), u"001-Dawn"_s);
  press(u"cmdControls"_s, 6);
  EXPECT_FALSE(control(u"cmdControls"_s, 5).tagged());
  // Without continue a random run plays each song once and ends.
  QStringList heard;
  for (int i = 0; i < 3; ++i) {
    songEnds();
    heard << playing();
  }
  heard.sort();
  EXPECT_EQ(heard, (QStringList{u"001-Dawn"_s, u"002-Noon"_s, u"003-Dusk"_s}));
  songEnds();
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
}

TEST_F(Music, PreviousAndNextGoRoundTheEnds) {
  start();
  playDays(3);
  press(u"cmdControls"_s, 4);
  EXPECT_EQ(playing(), u"001-Dawn"_s);
  press(u"cmdControls"_s, 0);
  EXPECT_EQ(playing(), u"003-Dusk"_s);
}

TEST_F(Music, PauseResumesByPauseOrPlayAndStopIsSentOnce) {
  start();
  playDays(1);
  press(u"cmdControls"_s, 2);
  EXPECT_EQ(console().state.gMusicState, u"PAUSED"_s);
  EXPECT_EQ(picture(u"cmdControls"_s, 2), u"pauseb"_s);
  press(u"cmdControls"_s, 2);
  EXPECT_EQ(console().state.gPlayMode, 2);
  press(u"cmdControls"_s, 3);
  press(u"cmdControls"_s, 3);
  EXPECT_EQ(player.calls.count(u"stop"_s), 1);
  press(u"cmdControls"_s, 1);
  EXPECT_EQ(playing(), u"001-Dawn"_s) << "Play starts the list on screen at its active row";
}

TEST_F(Music, AllSongsPlayOnInTheirOrderAndStopAtTheEnd) {
  start();
  press(u"imgTabs"_s, kMusicTab);
  press(u"cmdTop"_s, 3);
  EXPECT_EQ(grid(5).maxRows(), 5);
  playRow(5, 4);
  const QString fourth = playing();
  songEnds();
  EXPECT_NE(playing(), fourth);
  EXPECT_EQ(grid(5).row(), 5);
  songEnds();
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
}

TEST_F(Music, BackGoesToWhereTheAlbumWasEntered) {
  start();
  press(u"imgTabs"_s, kMusicTab);
  press(u"cmdTop"_s, 1);
  pressRow(4, 1);
  EXPECT_TRUE(shown(u"Grid"_s, 1));
  press(u"cmdTop"_s, 5);
  EXPECT_TRUE(shown(u"Grid"_s, 4));
  openAlbum(2, 1);
  pressRow(1, 0);
  EXPECT_TRUE(shown(u"Grid"_s, 0)) << "an artist with one album goes back to the artists";
  openAlbum(1, 2);
  press(u"cmdTop"_s, 5);
  EXPECT_TRUE(shown(u"Grid"_s, 2));
}

TEST_F(Music, TheSliderSeeksWhenTheFingerLetsGo) {
  start();
  playDays(1);
  player.tellDuration(200);
  system().pump.settle();
  EXPECT_EQ(caption(u"lblDuration"_s), u"3:20"_s);
  form().fire(slider(), {Event::Press});
  slider().value = 65;
  form().fire(slider(), {Event::Scroll});
  EXPECT_EQ(slider().text(), u"Current= 1:05 -- Remaining= 2:15"_s);
  player.CurrentPositionValue = 3;
  form().fire(control(u"MusicTimer"_s), {Event::Tick});
  EXPECT_EQ(slider().value(), 65) << "a held thumb is left alone";
  form().fire(slider(), {Event::Release});
  EXPECT_TRUE(player.calls.contains(u"seek 65"_s));
}

TEST_F(Music, BackToTheRunningSong) {
  start();
  playDays(2);
  press(u"imgTabs"_s, kMainTab);
  press(u"imgTabs"_s, kMusicTab);
  press(u"cmdTop"_s, 3);
  form().fire(control(u"lblCurrentPlay"_s), {Event::DblClick});
  EXPECT_TRUE(shown(u"Grid"_s, 1));
  EXPECT_EQ(grid(1).row(), 2);
}

TEST_F(Music, SongsThatCannotPlayEndAfterOneRound) {
  start();
  for (int row = 1; row <= 3; ++row) {
    const QString path = home / u"Music/Ada/Days/00%1-%2.mp3"_s.arg(row).arg(
                                    QStringList{u"Dawn"_s, u"Noon"_s, u"Dusk"_s}[row - 1]);
    player.errors[path] = u"no decoder"_s;
  }
  for (int i = 0; i < 4; ++i)
    host->onModal(u"frmMsgBox"_s, [](Form& box) { korvane::press(box, u"cmdControls"_s, 2); });
  press(u"imgTabs"_s, kMusicTab);
  openAlbum(1, 1);
  press(u"cmdControls"_s, 7);
  playRow(1, 1);
  for (int i = 0; i < 20; ++i) system().pump.settle();
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
  EXPECT_LE(player.calls.filter(u"open"_s).size(), 4);
}

TEST_F(Music, TypingFindsARowAndTheBufferForgets) {
  start();
  press(u"imgTabs"_s, kMusicTab);
  press(u"cmdTop"_s, 3);
  const auto type = [this](const QString& text) {
    Event key{Event::KeyPress};
    key.text = text;
    form().fireKey(key);
  };
  type(u"m"_s);
  type(u"o"_s);
  EXPECT_EQ(grid(5).cell(1, grid(5).row()), u"Moon"_s);
  form().fire(control(u"KeyboardTimer"_s), {Event::Tick});
  type(u"d"_s);
  EXPECT_EQ(grid(5).cell(1, grid(5).row()), u"Dawn"_s);
}

TEST_F(Music, TheFirstVisitOpensAtTheSongPlayedLast) {
  home.put(u"Morvanta.INI"_s, "[STARTUP]\nTheme=test\nLOCALLISTENER=1\n[GENERAL]\nLASTSONGPLAYED=" +
                                  (home / u"Music/Ada/Days/003-Dusk.mp3"_s).toUtf8() + "\n");
  start();
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_TRUE(shown(u"Grid"_s, 1));
  EXPECT_EQ(grid(1).row(), 3);
  EXPECT_EQ(picture(u"cmdTop"_s, 0), u"artistb"_s);
}

}  // namespace
}  // namespace korvane
