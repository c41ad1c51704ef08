// The player over the real libVLC and real files, without a sound device.
#include "platform/sound/media_player_vlc.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

const QString kToneA = QStringLiteral(FIXTURES "/tone_a.mp3");  // 1.5 s
const QString kToneB = QStringLiteral(FIXTURES "/tone_b.mp3");  // 1 s

struct PlayerTest : testing::Test, MediaPlayer::Events {
  PlayerTest() { player.setEvents(this); }
  void endOfStream() override { ++ends; }
  void durationKnown(double seconds) override { duration = seconds; }
  void failed(const QString& description) override { failures << description; }
  void play(const QString& path) {
    player.setFileName(path);
    player.Play();
  }
  bool until(const std::function<bool()>& done) { return pump.wait(8000, done); }
  void rest(int milliseconds) {
    pump.wait(milliseconds, [] { return false; });
  }

  TemporaryHome home;
  LoopPump pump;
  MediaPlayerVlc player{pump, {u"--aout=adummy"_s}};
  int ends = 0;
  double duration = 0;
  QStringList failures;
};

TEST_F(PlayerTest, PlaysToTheEndAndThenTheNext) {
  play(kToneA);
  EXPECT_EQ(player.playState(), MediaPlayer::Playing);
  EXPECT_TRUE(until([&] { return ends == 1; }));
  EXPECT_NEAR(player.Duration(), 1.55, 0.15);
  EXPECT_EQ(duration, player.Duration());
  EXPECT_EQ(player.playState(), MediaPlayer::Stopped);
  play(kToneB);
  EXPECT_TRUE(until([&] { return ends == 2; }));
  EXPECT_GT(player.Duration(), 0);
  player.Play();  // the same once more
  EXPECT_TRUE(until([&] { return ends == 3; }));
  EXPECT_TRUE(failures.isEmpty());
}

TEST_F(PlayerTest, PausesSeeksAndStopsAtOnce) {
  play(kToneA);
  ASSERT_TRUE(until([&] { return player.Duration() > 0; }));
  player.Pause();
  EXPECT_EQ(player.playState(), MediaPlayer::Paused);
  EXPECT_FALSE(pump.wait(2000, [&] { return ends > 0; }));
  player.setCurrentPosition(1.2);
  EXPECT_EQ(player.CurrentPosition(), 1.2);
  player.Play();
  EXPECT_TRUE(until([&] { return ends == 1; }));
  play(kToneA);
  rest(300);
  QElapsedTimer time;
  time.start();
  player.Stop();
  EXPECT_LT(time.elapsed(), 5);
  EXPECT_EQ(player.CurrentPosition(), 0);
  EXPECT_FALSE(pump.wait(500, [&] { return ends > 1; }));
}

TEST_F(PlayerTest, ALateEndOfTheFileBeforeIsNotTheEndOfThisOne) {
  for (int i = 0; i < 20; ++i) {
    play(i % 2 ? kToneA : kToneB);
    rest(i * 5);
  }
  ends = 0;
  play(kToneB);
  EXPECT_TRUE(until([&] { return ends == 1; }));
  EXPECT_FALSE(pump.wait(300, [&] { return ends > 1; }));
}

TEST_F(PlayerTest, WhatCannotBePlayedSaysSo) {
  const QString missing = home / u"missing.mp3"_s;
  player.setFileName(missing);
  EXPECT_TRUE(player.HasError());
  EXPECT_TRUE(player.ErrorDescription().contains(missing));

  QByteArray noise(100'000, '\0');
  quint32 seed = 7;
  for (char& byte : noise) byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
  const QStringList broken = {home.put(u"empty.mp3"_s, {}),
                              home.put(u"text.mp3"_s, "no music at all\n"),
                              home.put(u"noise.mp3"_s, noise)};
  for (const QString& path : broken) {
    failures.clear();
    play(path);
    EXPECT_TRUE(until([&] { return failures.size() == 1 || ends > 0; })) << path.toStdString();
    EXPECT_EQ(ends, 0) << path.toStdString();
    EXPECT_TRUE(failures.value(0).contains(path)) << path.toStdString();
    EXPECT_EQ(player.playState(), MediaPlayer::Stopped);
  }
  play(kToneB);
  EXPECT_FALSE(player.HasError());
  EXPECT_TRUE(until([&] { return ends == 1; }));
}

TEST_F(PlayerTest, APlayerThatGoesAwayMidSongIsQuiet) {
  for (int i = 0; i < 5; ++i) {
    MediaPlayerVlc other(pump, {u"--aout=adummy"_s});
    other.setEvents(this);
    other.setFileName(kToneA);
    other.Play();
    rest(i * 60);
  }
  EXPECT_FALSE(pump.wait(500, [&] { return ends > 0 || !failures.isEmpty(); }));
}

TEST(VlcVolume, FollowsTheCubicScale) {
  const std::pair<int, int> cases[] = {{0, 100}, {500, 100}, {-600, 79}, {-2000, 46}, {-10000, 0}};
  for (const auto& [level, percent] : cases) EXPECT_EQ(vlcVolume(level), percent) << level;
}

}  // namespace
}  // namespace korvane
