#include "tests/flows/cabin.h"

namespace korvane {
namespace {

class Sound : public CabinTest {
 protected:
  void begin(const QByteArray& settings) {
    given(u"Ada"_s, u"Days"_s, u"001-Dawn"_s);
    setting("LOCALLISTENER=1\nDisplayVolume=1\nShowMute=1\n" + settings);
    system().mixer.top = 1000;
    start();
    press(u"imgTabs"_s, kMusicTab);
  }
  int level() { return system().mixer.value; }
  Slider& bar() { return dynamic_cast<Slider&>(control(u"scrollVolume"_s)); }
};

TEST_F(Sound, AnOwnersBoundsHoldOnEveryRoad) {
  begin("VolumeMax=60\nVolumeStart=80\n");
  EXPECT_EQ(level(), 600) << "the start level keeps under the ceiling";
  fire(u"ScrollVolumeUp"_s, Event::Press);
  EXPECT_EQ(level(), 600);
  fire(u"ScrollVolumeUp"_s, Event::Release);
  bar().moveTo(2400);
  EXPECT_EQ(level(), 600);
  EXPECT_EQ(bar().value(), 1440) << "the thumb goes back to what holds";
  system().mixer.value = 900;  // by another program
  system().mixer.outside();
  system().pump.settle();
  EXPECT_EQ(level(), 600);
}

// Where the level is not shown, there is no mixer, or a Listener never tells its highest level.
TEST_F(Sound, AnOwnersCeilingHoldsUnseenToo) {
  begin("VolumeMax=50\nDisplayVolume=0\n");
  system().mixer.value = 900;
  system().mixer.outside();
  EXPECT_EQ(level(), 500);
  system().mixer.top = 0;
  system().mixer.outside();
  EXPECT_TRUE(player.calls.contains(u"volume -602"_s)) << "half of the player's own, in 1/100 dB";
  console().playback.transport.setLevel(0);
  console().listener.music.listenerMaxVolume = 0;
  bar().moveTo(2400);
  EXPECT_EQ(bar().value(), 1200);
}

TEST_F(Sound, MuteActsOnThePageOrOnWhatIsHeard) {
  begin("");
  EXPECT_EQ(level(), 500) << "half at the start";
  press(u"mute"_s);
  EXPECT_EQ(player.calls.count(u"mute"_s), 1);
  EXPECT_EQ(picture(u"mute"_s), u"muteb"_s);
  press(u"imgTabs"_s, kMoviesTab);
  EXPECT_EQ(picture(u"mute"_s), u"mute"_s) << "the movies have a mute of their own";
  press(u"mute"_s);
  EXPECT_EQ(player.calls.count(u"unmute"_s), 0);
  EXPECT_EQ(control(u"mute"_s).tag(), u"11"_s);
  console().desk.settings.write(key::FollowSound, u"YES"_s);
  press(u"imgTabs"_s, kMusicTab);
  openAlbum(1, 1);
  playRow(1, 1);
  answer({});  // no photos are set up
  press(u"imgTabs"_s, kPhotosTab);
  EXPECT_EQ(picture(u"mute"_s), u"muteb"_s);
  press(u"mute"_s);
  EXPECT_EQ(player.calls.count(u"unmute"_s), 1);
  EXPECT_EQ(control(u"mute"_s).tag(), u"01"_s);
}

}  // namespace
}  // namespace korvane
