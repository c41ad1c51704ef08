// The player of movies over the real libVLC and clips made by ffmpeg, without a sound device.
#include "platform/video/video_player_vlc.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>

#include "platform/video/movie_stills_vlc.h"
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
  // A clip of the moments named: each second of it one colour.
  QString seconds(const QString& name, const QStringList& colours) {
    QString inputs, joins;
    for (const QString& colour : colours) {
      inputs += u"-f lavfi -i color=c=%1:s=64x48:r=25:d=1 "_s.arg(colour);
      joins += u"[%1]"_s.arg(joins.count(u'['));
    }
    return clip(name,
                inputs + u"-filter_complex %1concat=n=%2,format=yuv420p -g 5"_s.arg(joins).arg(
                             colours.size()));
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
  const QString movie = clip(u"Film.mp4"_s, u"-f lavfi -i color=c=red:s=320x240:d=9"_s);
  const auto words = [](int from) {  // one each second
    QByteArray lines;
    for (int i = from; i < from + 9; ++i)
      lines += "%1\n00:00:%2,000 --> 00:00:%2,990\nHHHHHHHHHH\n\n"_ba
                   .replace("%1", QByteArray::number(i + 1))
                   .replace("%2", QByteArray::number(i).rightJustified(2, '0'));
    return lines;
  };
  home.put(u"film.cs.srt"_s, {});
  home.put(u"Film.da.srt"_s, "no times in it\n");
  for (const auto* name : {u"film.DE.srt", u"Film.srt", u"Filmed.srt"})
    home.put(QString::fromUtf16(name), words(30));
  home.put(u"Film.en.SRT"_s, words(0));
  play(movie);
  const auto names = [&] {
    QStringList all;
    for (const MediaTrack& track : player.tracks(TrackKind::Subtitles)) all << track.name;
    return all;
  };
  EXPECT_TRUE(until([&] { return names().size() == 3; }));
  EXPECT_EQ(names(), (QStringList{u"DE"_s, u"en"_s, u"Film"_s}));
  const auto allRed = [&] {
    for (int i = 0; i < 5000; ++i)
      if (!isRed(pixel(*frame, i % 100 / 100.0, 0.5 + i / 10000.0))) return false;
    return true;
  };
  ASSERT_TRUE(until([&] { return frame != nullptr; }));
  EXPECT_FALSE(pump.wait(500, [&] { return !allRed(); })) << "none is on at first";
  EXPECT_EQ(player.track(TrackKind::Subtitles), MediaTrack::kNone);
  player.setTrack(TrackKind::Subtitles, player.tracks(TrackKind::Subtitles).value(1).id);
  EXPECT_TRUE(until([&] { return !allRed(); })) << "only the second one has words here";
  player.setTrack(TrackKind::Subtitles, MediaTrack::kNone);
  EXPECT_TRUE(until(allRed));
}

TEST_F(MovieTest, HasTheShapeThatTheFileSaysAndTakesAnotherInTheMiddle) {
  clip(u"a.ts"_s, u"-f lavfi -i color=c=red:s=320x240:r=25:d=1"_s);
  clip(u"b.ts"_s, u"-f lavfi -i color=c=red:s=352x200:r=25:d=3 -output_ts_offset 1"_s);
  const QString straight = clip(u"straight.mp4"_s, kTwoColours);
  const struct {
    QString path;
    int width, height;
    double x, y;  // a place that must be red
  } table[] = {
      {clip(u"wide.mp4"_s, kTwoColours + u",setsar=2/1"_s), 320, 45, 0.1, 0.5},
      {clip(u"turned.mp4"_s, u"-i "_s + straight + u" -c copy -metadata:s:v rotate=90"_s), 68, 240,
       0.5, 0.9},
      {clip(u"odd.mkv"_s, kTwoColours + u",scale=161:91,setsar=1 -c:v ffv1"_s), 320, 181, 0.1, 0.5},
      {home.put(u"two.ts"_s, home.get(u"a.ts"_s) + home.get(u"b.ts"_s)), 320, 182, 0.5, 0.5}};
  for (const auto& [path, width, height, x, y] : table) {
    play(path);
    EXPECT_TRUE(until(
        [&] { return ends > 0 || (frame && frame->width == width && frame->height == height); }));
    ASSERT_TRUE(frame) << path.toStdString();
    EXPECT_EQ(frame->width, width) << path.toStdString();
    EXPECT_EQ(frame->height, height) << path.toStdString();
    EXPECT_TRUE(isRed(pixel(*frame, x, y))) << path.toStdString();
    ends = 0;
  }
}

TEST_F(MovieTest, SeeksInAPauseAndShowsThatMomentInAnyRoom) {
  const QString movie =
      seconds(u"moments.mp4"_s, {u"blue"_s, u"blue"_s, u"red"_s, u"blue"_s, u"blue"_s});
  play(movie);
  ASSERT_TRUE(until([&] { return frame != nullptr; }));
  player.pause();
  pump.wait(200, [] { return false; });  // libVLC shows no frame of a place sought at once
  player.setPosition(2.5);
  EXPECT_EQ(player.position(), 2.5);
  EXPECT_TRUE(until([&] { return isRed(pixel(*frame, 0.5, 0.5)); }));
  player.picture().setRoom(50, 50, VideoFit::Stretched);
  ASSERT_TRUE(until([&] { return frame->width == 50; }));
  EXPECT_TRUE(isRed(pixel(*frame, 0.5, 0.5)));
  player.play();
  ASSERT_TRUE(until([&] { return ends == 1; }));
  player.play();
  EXPECT_LT(player.position(), 1) << "from the beginning";
}

TEST_F(MovieTest, AStillIsOfAMomentBehindTheBeginning) {
  MovieStillsVlc stills(pump);
  QString colours = u"blue "_s.repeated(2) + u"red "_s.repeated(2) + u"blue "_s.repeated(16);
  const struct {
    QString path;
    int width, height;
    double seconds;
  } table[] = {{seconds(u"long.mp4"_s, colours.trimmed().split(u' ')), 80, 60, 20},
               {seconds(u"short.mp4"_s, {u"red"_s}), 80, 60, 1},
               {home.put(u"text.avi"_s, "no movie at all\n"), 0, 0, 0},
               {home / u"missing.avi"_s, 0, 0, 0}};
  for (const auto& [path, width, height, seconds] : table) {
    std::optional<MovieStill> still;
    stills.make(path, 80, 80, [&](const MovieStill& made) { still = made; });
    EXPECT_TRUE(stills.busy());
    ASSERT_TRUE(pump.wait(30'000, [&] { return still.has_value(); })) << path.toStdString();
    EXPECT_NEAR(still->seconds, seconds, 0.2);
    const QImage image = QImage::fromData(still->jpeg);
    EXPECT_EQ(image.size(), width ? QSize(width, height) : QSize(0, 0)) << path.toStdString();
    EXPECT_TRUE(image.isNull() || isRed(image.pixel(width / 2, height / 2))) << path.toStdString();
    EXPECT_FALSE(stills.busy());
  }
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
