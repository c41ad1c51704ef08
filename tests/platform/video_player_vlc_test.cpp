// The player of movies over the real libVLC and clips made by ffmpeg, without a sound device.
#include "platform/video/video_player_vlc.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

#include "platform/video/video_frames.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

const QString kTwoColours =
    u"-f lavfi -i color=c=red:s=160x90:r=25:d=2 -f lavfi -i "
    "color=c=blue:s=160x90:r=25:d=2 -filter_complex hstack"_s;

struct MovieTest : testing::Test, VideoPlayer::Events, VideoPicture::Events {
  MovieTest() {
    player.setEvents(this);
    player.picture().setEvents(this);
    player.picture().setRoom(320, 240, VideoFit::Whole);
  }
  void endOfMovie() override { ++ends; }
  void durationKnown(double) override {}
  void failed(const QString& description) override { failures << description; }
  void pictureChanged() override {
    ++pictures;
    frame = player.picture().newest();
  }
  bool until(const std::function<bool()>& done) { return pump.wait(10'000, done); }

  // A clip by ffmpeg's words.
  QString clip(const QString& name, const QString& words) {
    QStringList arguments{u"-v"_s, u"error"_s};
    arguments << words.split(u' ') << home / name;
    EXPECT_EQ(QProcess::execute(u"ffmpeg"_s, arguments), 0) << words.toStdString();
    return home / name;
  }
  void play(const QString& path) {
    frame.reset();
    player.open(path);
    player.play();
  }
  // The colour in the middle of the frame's left or right half, as far as a codec keeps it.
  static bool isRed(quint32 pixel) {
    return (pixel >> 16 & 0xff) > 200 && (pixel & 0xff) < 60 && pixel >> 24 == 0xff;
  }
  static quint32 pixel(const VideoFrame& of, double x, double y) {
    const uchar* row = of.pixels + static_cast<qsizetype>(y * (of.height - 1)) * of.rowBytes;
    return reinterpret_cast<const quint32*>(row)[static_cast<int>(x * (of.width - 1))];
  }

  TemporaryHome home;
  LoopPump pump;
  VideoPlayerVlc player{pump, {u"--aout=adummy"_s}};
  std::shared_ptr<const VideoFrame> frame;
  int ends = 0, pictures = 0;
  QStringList failures;
};

TEST_F(MovieTest, ShowsThePictureInTheRoomAndKeepsTheLastAtItsEnd) {
  const QString movie = clip(u"two.mp4"_s, kTwoColours);
  play(movie);
  ASSERT_TRUE(until([&] { return frame != nullptr; }));
  EXPECT_EQ(frame->width, 320);
  EXPECT_EQ(frame->height, 90);
  EXPECT_TRUE(isRed(pixel(*frame, 0.25, 0.5)));
  EXPECT_FALSE(isRed(pixel(*frame, 0.75, 0.5)));
  player.pause();
  const struct {
    VideoFit fit;
    int width, height;
    double leftIsRed;  // a place that must be red
  } fits[] = {{VideoFit::Stretched, 101, 77, 0.1},
              {VideoFit::Filled, 200, 200, 0.1},
              {VideoFit::Whole, 641, 480, 0.4}};
  for (const auto& [fit, width, height, place] : fits) {
    player.picture().setRoom(width, height, fit);
    EXPECT_TRUE(until([&] { return frame->width == width; })) << width;
    EXPECT_TRUE(isRed(pixel(*frame, place, 0.5))) << width;
  }
  player.play();
  EXPECT_TRUE(until([&] { return ends == 1; }));
  EXPECT_EQ(player.state(), VideoPlayer::Stopped);
  EXPECT_NEAR(player.duration(), 2, 0.2);
  EXPECT_TRUE(player.picture().newest());
  player.play();
  player.setPosition(1.5);
  EXPECT_TRUE(until([&] { return ends == 2; }));
  player.close();
  EXPECT_FALSE(player.picture().newest());
  EXPECT_TRUE(failures.isEmpty()) << failures.join(u'\n').toStdString();
}

TEST_F(MovieTest, AHolderOfTwoFramesStopsTheNewOnesAndKeepsHisOwn) {
  play(clip(u"moving.mp4"_s, u"-f lavfi -i testsrc=s=64x48:d=2"_s));
  ASSERT_TRUE(until([&] { return frame != nullptr; }));
  const std::shared_ptr<const VideoFrame> first = frame;
  const QByteArray before(reinterpret_cast<const char*>(first->pixels),
                          first->rowBytes * first->height);
  ASSERT_TRUE(until([&] { return frame != first; }));
  const std::shared_ptr<const VideoFrame> second = frame;
  pump.wait(300, [] { return false; });
  const int shown = pictures;
  EXPECT_TRUE(until([&] { return ends == 1; }));
  EXPECT_LE(pictures, shown + 1);
  EXPECT_EQ(before, QByteArray(reinterpret_cast<const char*>(first->pixels), before.size()));
}

TEST_F(MovieTest, WhatIsNoMovieSaysSoAndAnotherPlays) {
  const QString whole = clip(u"whole.avi"_s, kTwoColours);
  QFile file(whole);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QStringList broken{home / u"missing.avi"_s, home.put(u"empty.avi"_s, {}),
                           home.put(u"text.avi"_s, "no movie at all\n"),
                           home.put(u"head.avi"_s, file.read(200))};
  for (const QString& path : broken) {
    failures.clear();
    play(path);
    EXPECT_TRUE(until([&] { return !failures.isEmpty() || ends > 0; })) << path.toStdString();
    EXPECT_TRUE(failures.value(0).contains(path)) << path.toStdString();
    EXPECT_EQ(player.state(), VideoPlayer::Closed);
    EXPECT_EQ(ends, 0);
  }
  failures.clear();
  file.seek(0);
  for (const QString& path :
       {home.put(u"cut.avi"_s, file.read(file.size() * 2 / 3)),
        clip(u"sound.avi"_s, u"-f lavfi -i sine=d=1"_s), clip(u"wéird %41#.mp4"_s, kTwoColours)}) {
    const int before = ends;
    play(path);
    EXPECT_TRUE(until([&] { return ends > before; })) << path.toStdString();
  }
  EXPECT_TRUE(failures.isEmpty()) << failures.join(u'\n').toStdString();
}

TEST_F(MovieTest, OffersTheSubtitlesBesideTheMovie) {
  const QString movie = clip(u"Film.mp4"_s, u"-f lavfi -i color=c=red:s=64x48:d=4"_s);
  for (const auto* name : {u"film.DE.srt", u"Film.srt", u"Film.en.SRT", u"Filmed.srt"})
    home.put(QString::fromUtf16(name), "1\n00:00:00,000 --> 00:00:04,000\nHello\n");
  play(movie);
  const auto names = [&] {
    QStringList all;
    for (const MediaTrack& track : player.tracks(TrackKind::Subtitles)) all << track.name;
    return all;
  };
  EXPECT_TRUE(until([&] { return names().size() == 3; }));
  EXPECT_EQ(names(), (QStringList{u"DE"_s, u"en"_s, u"Film"_s}));
  EXPECT_EQ(player.track(TrackKind::Subtitles), MediaTrack::kNone);
}

TEST_F(MovieTest, ALateEndOfTheMovieBeforeIsNotTheEndOfThisOne) {
  const QString movie = clip(u"short.mp4"_s, u"-f lavfi -i color=c=red:s=64x48:d=0.3"_s);
  for (int i = 0; i < 12; ++i) {
    play(movie);
    pump.wait(i * 40, [] { return false; });
  }
  ends = 0;
  play(movie);
  EXPECT_TRUE(until([&] { return ends == 1; }));
  EXPECT_FALSE(pump.wait(300, [&] { return ends > 1; }));
}

TEST(VideoLayout, GivesThePartAndTheSizeOfEachFit) {
  const struct {
    const char* what;
    int width, height;
    double shape;
    VideoFit fit;
    VideoLayout wanted;
  } cases[] = {
      {"wide", 1920, 1080, 1, VideoFit::Whole, {0, 0, 1920, 1080, 800, 450}},
      {"DVD 16:9", 720, 576, 64.0 / 45, VideoFit::Whole, {0, 0, 720, 576, 800, 450}},
      {"tall", 100, 200, 1, VideoFit::Whole, {0, 0, 100, 200, 240, 480}},
      {"wide", 1920, 1080, 1, VideoFit::Filled, {60, 0, 1800, 1080, 800, 480}},
      {"tall", 100, 200, 1, VideoFit::Filled, {0, 70, 100, 60, 800, 480}},
      {"any", 33, 77, 2, VideoFit::Stretched, {0, 0, 33, 77, 800, 480}},
      {"thread", 10000, 1, 1, VideoFit::Whole, {0, 0, 10000, 1, 800, 1}},
  };
  for (const auto& [what, width, height, shape, fit, wanted] : cases) {
    const VideoLayout got = layOut(width, height, shape, 800, 480, fit);
    EXPECT_EQ((std::array{got.x, got.y, got.width, got.height, got.toWidth, got.toHeight}),
              (std::array{wanted.x, wanted.y, wanted.width, wanted.height, wanted.toWidth,
                          wanted.toHeight}))
        << what;
  }
}

}  // namespace
}  // namespace korvane
