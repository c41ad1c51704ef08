// The CD as the source of music, over a drive in the test's hand.
#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class CdTest : public CabinTest {
 protected:
  FakeDiscDrive& drive() { return system().disc; }
  void startAtCd() {
    setting("LOCALLISTENER=1\nCDDrive=/dev/sr9\n");
    start();
    press(u"imgTabs"_s, kMusicTab);
    press(u"lblMusicType"_s, 0);
  }
  void soundAt(int track, int seconds) {
    drive().sound(track, seconds);
    fire(u"MusicTimer"_s, Event::Tick);
  }
  QStringList shownRows() {
    QStringList rows = column(grid(7), 1);
    for (int row = 1; row <= rows.size(); ++row) rows[row - 1] += u'|' + grid(7).cell(2, row);
    return rows;
  }
  QString lastCall() { return drive().calls.isEmpty() ? QString() : drive().calls.last(); }
};

TEST_F(CdTest, CdCommandAnswersAsTold) {
  start();
  CdPlayer& cd = console().playback.cd;
  for (const int asked : {1, 4, 6, 10}) EXPECT_EQ(cd.cdCommand(asked), u"false"_s) << asked;
  EXPECT_EQ(cd.cdCommand(12), u"DATA"_s);
  drive().put({{125, {}}, {59, {}}});
  drive().at = {2, 62 * kSectorsPerSecond + 7};
  const struct {
    int function, track, seconds;
    const char *result, *call;
  } cases[] = {{4, 0, 0, "true", ""},     {6, 0, 0, "2", ""},         {7, 0, 0, "03:04:00", ""},
               {8, 1, 0, "02:05", ""},    {8, 3, 0, "", ""},          {10, 0, 0, "02:01:02:07", ""},
               {11, 0, 0, "STOPPED", ""}, {12, 0, 0, "AUDIO", ""},    {1, 2, 0, "", "play 2 0"},
               {11, 0, 0, "SEEK", ""},    {1, -1, 0, "", "play 1 0"}, {0, 2, 31, "", "play 2 31"},
               {3, 0, 0, "", "pause"},    {11, 0, 0, "PAUSED", ""},   {2, 0, 0, "", "stop"},
               {9, 0, 0, "", "eject"},    {5, 0, 0, "", "close"},     {99, 0, 0, "", ""}};
  for (const auto& c : cases) {
    drive().calls.clear();
    EXPECT_EQ(cd.cdCommand(c.function, c.track, c.seconds), QString::fromLatin1(c.result))
        << c.function;
    EXPECT_EQ(lastCall(), QString::fromLatin1(c.call)) << c.function;
  }
  drive().put({{60, {}}}, false);
  EXPECT_EQ(cd.cdCommand(12), u"DATA"_s);
  drive().takeOut(true);
  EXPECT_EQ(cd.cdCommand(11), u"OPEN"_s);
  drive().takeOut(false);
  EXPECT_EQ(cd.cdCommand(11), u"NOT READY"_s);
}

TEST_F(CdTest, TheSourceChangesAndChangesBack) {
  given(u"Abbey"_s, u"Road"_s, u"One"_s);
  drive().put({{200, u"Low Tide"_s}, {61, {}}});
  startAtCd();
  EXPECT_EQ(drive().opened, u"/dev/sr9"_s);
  EXPECT_EQ(shownRows(), (QStringList{u"1. Low Tide|03:20"_s, u"Track 2|01:01"_s}));
  EXPECT_FALSE(control(u"cmdTop"_s, 1).enabled());
  press(u"imgTabs"_s, kMoviesTab);
  press(u"imgTabs"_s, kMusicTab);
  EXPECT_TRUE(shown(u"Grid"_s, 7));

  playRow(7, 1);
  soundAt(1, 65);
  EXPECT_EQ(caption(u"TxtTime"_s), u"1:05"_s);
  fire(u"Slider1"_s, Event::Press);
  slider().value = 100;
  soundAt(1, 66);
  EXPECT_EQ(slider().value(), 100) << "held";
  fire(u"Slider1"_s, Event::Release);
  EXPECT_EQ(lastCall(), u"play 1 100"_s);
  answer({});
  press(u"lblMusicType"_s, 1);  // refused while it plays
  EXPECT_EQ(console().desk.state.gMusicType, MusicSource::Cd);
  press(u"cmdControls"_s, 3);
  press(u"lblMusicType"_s, 1);
  EXPECT_EQ(lastCall(), u"close"_s);
  EXPECT_TRUE(shown(u"Grid"_s, 0));
  openAlbum(1, 1);
  playRow(1, 1);
  EXPECT_EQ(playing(), u"One"_s);

  press(u"cmdControls"_s, 3);
  console().desk.state.gMovieType = MovieType::ListenerDvd;
  answer({});
  press(u"lblMusicType"_s, 0);
  EXPECT_EQ(console().desk.state.gMusicType, MusicSource::Digital);
}

TEST_F(CdTest, TheButtonsOfTheTransport) {
  drive().put({{100, {}}, {100, {}}, {100, {}}});
  startAtCd();
  const struct {
    int button, soundTrack, soundSecond;
    const char *call, *caption;
  } walk[] = {{1, 1, 0, "play 1 0", "CD Seeking"}, {4, 2, 9, "play 2 0", "CD Seeking"},
              {2, 2, 9, "pause", "CD Paused"},     {1, 2, 9, "play 2 9", "CD Playing"},
              {2, 2, 9, "pause", "CD Paused"},     {2, 2, 9, "play 2 9", "CD Playing"},
              {0, 1, 4, "play 1 0", "CD Seeking"}, {0, 3, 4, "play 3 0", "CD Seeking"},
              {4, 1, 0, "play 1 0", "CD Seeking"}, {3, 0, 0, "stop", "CD Stopped"}};
  for (const auto& step : walk) {
    press(u"cmdControls"_s, step.button);
    EXPECT_EQ(lastCall(), QString::fromLatin1(step.call)) << step.button;
    EXPECT_EQ(caption(u"lblCurrentPlay"_s), QString::fromLatin1(step.caption)) << step.button;
    if (drive().now == DiscDrive::Seek) soundAt(step.soundTrack, step.soundSecond);
  }
}

TEST_F(CdTest, NoDiscASilentDriveAndAnotherDisc) {
  drive().answers = false;
  startAtCd();
  EXPECT_LE(system().pump.waitedMs, 20'000);
  EXPECT_EQ(shownRows(), QStringList{u"NO CD Double click to refresh|"_s});
  drive().answers = true;
  drive().put({{30, {}}});
  playRow(7, 1);  // refreshes
  EXPECT_EQ(shownRows(), QStringList{u"Track 1|00:30"_s});
  playRow(7, 1);
  soundAt(1, 5);
  drive().put({{10, {}}});  // swapped in one go
  drive().tell();
  EXPECT_EQ(shownRows(), QStringList{u"Track 1|00:10"_s});
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"CD Stopped"_s);
}

TEST_F(CdTest, TheSongsOfADataDiscPlayAsAList) {
  drive().put({{60, {}}}, false);
  for (const QString& name : {u"a/One.mp3"_s, u"b/Two.WAV"_s})
    drive().held->songs << home.put(u"disc/"_s + name, "x");
  startAtCd();
  EXPECT_EQ(shownRows(), (QStringList{u"One|"_s, u"Two|"_s}));
  playRow(7, 1);
  EXPECT_EQ(playing(), u"One"_s);
  songEnds();
  EXPECT_EQ(playing(), u"Two"_s);
  songEnds();
  EXPECT_EQ(caption(u"lblCurrentPlay"_s), u"Status: Idle"_s);
  drive().held->songs.clear();
  drive().troubleText = u"The disc holds data and is not mounted."_s;
  drive().tell();
  EXPECT_EQ(shownRows(), QStringList{u"The disc holds data and is not mounted.|"_s});
}

}  // namespace
}  // namespace korvane
