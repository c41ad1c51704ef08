#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class Music : public CabinTest {
 protected:
  Music() {
    days = givenDays();
    given(u"Ada"_s, u"Nights"_s, u"Moon"_s);
    given(u"Bo"_s, u"Only"_s, u"One"_s);
    setting("LOCALLISTENER=1\n");
  }
  void playDays(int row) {
    start();
    openAlbum(1, 1);
    playRow(1, row);
  }
  QStringList days;
};

TEST_F(Music, TheButtonsOfTheTransport) {
  playDays(3);
  press(u"cmdControls"_s, 4);
  EXPECT_EQ(playing(), u"001-Dawn"_s) << "round the end";
  press(u"cmdControls"_s, 0);
  EXPECT_EQ(playing(), u"003-Dusk"_s);
  press(u"cmdControls"_s, 7);
  songEnds();
  EXPECT_EQ(playing(), u"001-Dawn"_s) << "continued";
  press(u"cmdControls"_s, 5);
  EXPECT_EQ(picture(u"cmdControls"_s, 7), u"continue off"_s) << "one mode ends another";
  songEnds();
  EXPECT_EQ(playing(), u"001-Dawn"_s) << "repeated";
  press(u"cmdControls"_s, 6);
  EXPECT_FALSE(control(u"cmdControls"_s, 5).tagged());
  press(u"cmdControls"_s, 3);
  press(u"cmdControls"_s, 3);
  EXPECT_EQ(player.calls.count(u"stop"_s), 1);
  pressRow(1, 2);
  press(u"cmdControls"_s, 1);
  EXPECT_EQ(playing(), u"002-Noon"_s) << "Play starts the list on screen at its active row";
}

TEST_F(Music, BackGoesToWhereTheAlbumWasEntered) {
  start();
  openPage(1);
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
  playDays(1);
  player.tellDuration(200);
  system().pump.settle();
  fire(u"Slider1"_s, Event::Press);
  slider().value = 65;
  fire(u"Slider1"_s, Event::Scroll);
  EXPECT_EQ(slider().text(), u"Current= 1:05 -- Remaining= 2:15"_s);
  player.CurrentPositionValue = 3;
  form().fire(control(u"MusicTimer"_s), {Event::Tick});
  EXPECT_EQ(slider().value(), 65) << "a held thumb is left alone";
  fire(u"Slider1"_s, Event::Release);
  EXPECT_TRUE(player.calls.contains(u"seek 65"_s));
}

// Without the key a song's end on the Movies tab is the end of the music, and is shown.
TEST_F(Music, TheTransportFollowsWhatIsHeardByItsKey) {
  playDays(1);
  press(u"imgTabs"_s, kMoviesTab);
  songEnds();
  EXPECT_EQ(picture(u"cmdControls"_s, 3), u"stopb"_s);
  console().desk.settings.write(key::FollowSound, u"YES"_s);
  for (const int tab : {kMoviesTab, kPhotosTab}) {
    press(u"imgTabs"_s, kMusicTab);
    playRow(1, 1);
    if (tab == kPhotosTab) answer(u"Photos directory"_s);
    press(u"imgTabs"_s, tab);
    EXPECT_EQ(picture(u"cmdControls"_s, 1), u"playb"_s);
    songEnds();
    EXPECT_EQ(playing(), u"002-Noon"_s);
    press(u"cmdControls"_s, 4);
    EXPECT_EQ(playing(), u"003-Dusk"_s);
    for (const auto& [button, heard] :
         {std::pair{2, MusicState::Paused}, {1, MusicState::Play}, {3, MusicState::Stop}}) {
      press(u"cmdControls"_s, button);
      EXPECT_EQ(console().desk.state.gMusicState, heard) << button;
    }
  }
}

TEST_F(Music, AThumbThatMovesNothingStaysAndARefusalSaysWhy) {
  setting("LOCALLISTENER=1\nLocalServer=1\n");
  start();
  press(u"imgTabs"_s, kMusicTab);
  fire(u"Slider1"_s, Event::Press);
  slider().value = 40;
  fire(u"Slider1"_s, Event::Scroll);
  EXPECT_EQ(slider().value(), 0);
  fire(u"Slider1"_s, Event::Release);
  openAlbum(1, 1);
  playRow(1, 1);
  slider().value = 3;
  answer(u"Stop the music first"_s);
  press(u"lblMusicType"_s, 0);
  EXPECT_EQ(console().desk.state.gMusicType, MusicSource::Digital);
}

// Another song of the library comes in while the page of all songs plays.
TEST_F(Music, AScanLeavesThePageOfAllSongsWhereItWas) {
  start();
  openPage(3);
  playRow(5, 3);
  const QString third = playing();
  given(u"Ada"_s, u"Days"_s, u"000-Ahead"_s);
  console().library.songsChanged();
  system().pump.settle();
  EXPECT_EQ(grid(5).row(), 4);
  press(u"cmdTop"_s, 3);
  press(u"cmdControls"_s, 0);
  press(u"cmdControls"_s, 4);
  EXPECT_EQ(playing(), third);
  songEnds();
  EXPECT_EQ(grid(5).row(), 5) << "they play on in their order";
  for (int left = 0; left < 2; ++left) songEnds();
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
  openAlbum(1, 1);
  console().library.songsChanged();
  EXPECT_TRUE(shown(u"Grid"_s, 0)) << "an album that stood open may hold other songs now";
}

// Favourites, a playlist and albums are looked at while an album plays.
TEST_F(Music, LookingAtAListLeavesTheOneThatPlaysByItsKey) {
  home.put(u"PlayLists/mix.m3u"_s, days[2].toUtf8());
  setting("LOCALLISTENER=1\nKeepList=YES\n");
  playDays(1);
  press(u"cmdTop"_s, 6);
  press(u"cmdTop"_s, 2);
  pressRow(6, 1);
  openAlbum(2, 1);
  press(u"cmdControls"_s, 4);
  EXPECT_EQ(playing(), u"002-Noon"_s);
  EXPECT_EQ(grid(1).row(), 1) << "of another album";
  press(u"cmdTop"_s, 3);
  playRow(5, 2);
  const QString second = playing();
  pressRow(5, 4);
  press(u"cmdControls"_s, 4);
  press(u"cmdControls"_s, 0);
  EXPECT_EQ(playing(), second) << "from the song that plays, not from the row that was touched";
}

TEST_F(Music, AFavouriteThatGoesLeavesTheShuffleBagToo) {
  start();
  openAlbum(1, 1);
  for (const int row : {1, 2, 3}) {
    pressRow(1, row);
    press(u"cmdFavoriateAdd"_s);
  }
  press(u"cmdControls"_s, 6);
  press(u"cmdTop"_s, 6);
  playRow(8, 1);
  EXPECT_TRUE(form().fire(grid(8), {Event::ButtonClicked, 6, 2}));
  QStringList heard;
  for (int i = 0; i < 3; ++i) {
    songEnds();
    heard << playing();
  }
  EXPECT_FALSE(heard.contains(u"002-Noon"_s));
  EXPECT_TRUE(heard.contains(u"003-Dusk"_s)) << "and the music goes on";
}

TEST_F(Music, APressOnTheCoverLaysItOverTheList) {
  playDays(1);
  control(u"coverArt"_s).visible = true;
  const Rect small = control(u"coverArt"_s).rect();
  press(u"coverArt"_s);
  EXPECT_EQ(control(u"coverArt"_s).rect(), grid(1).rect());
  press(u"coverArt"_s);
  EXPECT_EQ(control(u"coverArt"_s).rect(), small);
}

TEST_F(Music, SongsThatCannotPlayEndAfterOneRound) {
  start();
  for (const QString& path : days) player.errors[path] = u"no decoder"_s;
  for (int i = 0; i < 4; ++i) answer(u"no decoder"_s);
  openAlbum(1, 1);
  press(u"cmdControls"_s, 7);
  playRow(1, 1);
  for (int i = 0; i < 20; ++i) system().pump.settle();
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
  EXPECT_LE(player.calls.filter(u"open"_s).size(), 4);
}

TEST_F(Music, TypingFindsARowAndTheBufferForgets) {
  start();
  openPage(3);
  const auto found = [this](const QString& typed) {
    for (const QChar letter : typed) form().fireKey({Event::KeyPress, 0, 0, 0, letter});
    return grid(5).cell(1, grid(5).row());
  };
  EXPECT_EQ(found(u"mo"_s), u"Moon"_s);
  form().fire(control(u"KeyboardTimer"_s), {Event::Tick});
  EXPECT_EQ(found(u"d"_s), u"Dawn"_s);
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
