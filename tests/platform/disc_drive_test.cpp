// The drive over real images, the real libVLC and a reader that misbehaves.
#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <thread>

#include "platform/disc/disc_reader_cdio.h"
#include "platform/disc/reading_drive.h"
#include "platform/sound/media_player_vlc.h"
#include "tests/fakes/disc_image.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

struct DriveTest : testing::Test {
  QByteArray heard() { return home.get(u"heard.wav"_s).mid(44); }
  bool until(const std::function<bool()>& done) { return pump.wait(10'000, done); }
  void open(const QString& source) {
    drive.open(source);
    ASSERT_TRUE(until([&] { return drive.looked(); }));
  }

  TemporaryHome home;
  LoopPump pump;
  // Its words would come after the output of this test and win.
  const bool wordsOfTheSurroundings = qunsetenv("KORVANE_VLC_ARGS");
  MediaPlayerVlc player{pump,
                        {u"--aout=afile"_s, u"--audiofile-file="_s + (home / u"heard.wav"_s)}};
  ReadingDrive drive{pump, player, std::make_shared<DiscReaderCdio>()};
};

// What comes out is the samples of the tracks, in order, and nothing between them.
TEST_F(DriveTest, PlaysFromATrackToTheEndOfTheDiscSampleForSample) {
  open(makeDiscImage(home.path(), u"disc"_s, {2, 4, 4}));
  ASSERT_TRUE(drive.disc());
  ASSERT_EQ(drive.disc()->tracks.size(), 3u);
  EXPECT_EQ(drive.disc()->title, u"Harbour"_s);
  EXPECT_EQ(drive.disc()->at(2).title, u"Tone é 2"_s);
  EXPECT_EQ(drive.disc()->at(2).first, 150);
  EXPECT_EQ(drive.disc()->at(3).sectors, 300);
  drive.play(2, 0);
  EXPECT_EQ(drive.mode(), DiscDrive::Seek);
  EXPECT_TRUE(until([&] { return drive.mode() == DiscDrive::Playing; }));
  EXPECT_TRUE(until([&] { return drive.place().track == 3; }));
  EXPECT_TRUE(until([&] { return drive.mode() == DiscDrive::Stopped; }));
  // An output without a clock may lose the first tenths of a second.
  const QByteArray wanted = toneSectors(4, 2000) + toneSectors(4, 3000), all = heard();
  EXPECT_TRUE(wanted.endsWith(all));
  EXPECT_GT(all.size(), wanted.size() - 3 * 17640);
}

TEST_F(DriveTest, WhatIsNoDiscSaysWhy) {
  makeDiscImage(home.path(), u"good"_s, {1, 1, 1});
  const QByteArray sheet = home.get(u"good.cue"_s);
  QByteArray backwards = sheet, beyond = sheet;
  backwards.replace("00:01:00", "00:02:00");
  beyond.replace("00:01:00", "00:99:00");
  QByteArray numbered = sheet, places = sheet;
  numbered.replace("TRACK 02", "TRACK 99");
  for (int i = 0; i < 120; ++i) places += "INDEX 02 00:01:00\n";
  const struct {
    QString name;
    std::optional<QByteArray> cue, bin;
    QString reason;
    size_t tracks;
  } cases[] = {
      {u"absent"_s, {}, {}, u"There is no"_s, 0},
      {u"empty"_s, "", toneSectors(1, 9), u"no tracks"_s, 0},
      {u"nobin"_s, sheet, {}, u"nobin.bin"_s, 0},
      {u"hollow"_s, sheet, "", u"nothing on it"_s, 0},
      {u"short"_s, sheet, toneSectors(1, 9) + toneSectors(1, 9).left(47040), u"in track 2 of 3"_s,
       2},
      {u"ragged"_s, sheet, toneSectors(3, 9).chopped(7), u"cut short"_s, 3},
      {u"backwards"_s, backwards, toneSectors(3, 9), u"not in order"_s, 0},
      {u"numbered"_s, numbered, toneSectors(3, 9), u"is not track 2"_s, 0},
      {u"places"_s, places, toneSectors(3, 9), u"is a place without"_s, 0},
      {u"long"_s, sheet + QByteArray(5000, 'x'), toneSectors(3, 9), u"too long"_s, 0},
      {u"beyond"_s, beyond, toneSectors(3, 9), u"no CUE sheet"_s, 0},
  };
  for (const auto& c : cases) {
    if (c.cue) home.put(c.name + u".cue"_s, *c.cue);
    if (c.bin) home.put(c.name + u".bin"_s, *c.bin);
    open(home / (c.name + u".cue"_s));
    EXPECT_EQ(drive.disc() ? drive.disc()->tracks.size() : 0, c.tracks) << c.name.toStdString();
    EXPECT_TRUE(drive.trouble().contains(c.reason))
        << c.name.toStdString() << ": " << drive.trouble().toStdString();
    EXPECT_TRUE(drive.trouble().contains(c.name)) << drive.trouble().toStdString();
  }
  open(makeDiscImage(home.path(), u"data"_s, {1}, "MODE1/2352"));
  EXPECT_TRUE(drive.disc() && !drive.disc()->at(1).audio);
  EXPECT_TRUE(drive.trouble().contains("data disc"_L1)) << drive.trouble().toStdString();
}

// libcdio keeps state of the process: its own parser and its log must never meet themselves.
TEST_F(DriveTest, LooksAtADiscWhileItIsOpenedAndRead) {
  const QString image = makeDiscImage(home.path(), u"disc"_s, {1, 1, 1, 1, 1, 1, 1, 1});
  DiscReaderCdio reader;
  std::atomic<bool> over{false};
  std::atomic<int> unread{0};
  std::thread sound([&] {
    QByteArray chunk(qsizetype{25} * kSectorBytes, 0);
    while (!over) {
      const auto sectors = reader.sectors(image);
      if (!sectors || !sectors->read(500, 25, chunk.data())) ++unread;
    }
  });
  for (int i = 0; i < 1000; ++i) {
    const DiscLook look = reader.look(image, {});
    EXPECT_EQ(look.disc.tracks.size(), 8u) << look.trouble.toStdString();
  }
  over = true;
  sound.join();
  EXPECT_EQ(unread, 0);
}

// A drive that hangs where a test wants it, until it is let go.
class HangingReader : public DiscReader {
 public:
  struct Sectors : SectorReader {
    explicit Sectors(HangingReader& from) : reader(from) {}
    HangingReader& reader;
    bool read(int first, int count, char* to) override {
      reader.furthest = first + count;
      reader.hang(first + count > reader.goodSectors && reader.sectorsHang);
      const QByteArray sound = toneSectors(1, 5000);
      std::copy_n(sound.constData(), count * kSectorBytes, to);
      return first + count <= reader.goodSectors;
    }
  };
  DiscLook look(const QString&, const DiscLook&) override {
    hang(lookHangs);
    DiscLook look;
    look.state = DiscLook::Ready;
    look.disc.tracks = {{0, 60 * kSectorsPerSecond, true, {}, {}}};
    return look;
  }
  std::unique_ptr<SectorReader> sectors(const QString&) override {
    return std::make_unique<Sectors>(*this);
  }
  void eject(const QString&) override {}
  void hang(bool really) {
    if (really) ++hung;
    while (really && !letGo) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  std::atomic<bool> lookHangs{false}, sectorsHang{false}, letGo{false};
  std::atomic<int> goodSectors{1 << 20}, hung{0}, furthest{0};
};

TEST_F(DriveTest, ADriveThatHangsHoldsNobodyUp) {
  const auto reader = std::make_shared<HangingReader>();
  QElapsedTimer time;
  {
    ReadingDrive hanging(pump, player, reader);
    hanging.open({});
    ASSERT_TRUE(until([&] { return hanging.looked(); }));
    reader->sectorsHang = true;
    reader->goodSectors = 3 * kSectorsPerSecond;
    hanging.play(1, 0);
    ASSERT_TRUE(until([&] { return reader->hung > 0; }));  // the player waits for more
    pump.wait(500, [] { return false; });
    time.start();
    hanging.stop();
    EXPECT_EQ(hanging.mode(), DiscDrive::Stopped);
    hanging.play(1, 1);
    hanging.close();
    reader->lookHangs = true;
    hanging.open({});
    EXPECT_FALSE(pump.wait(300, [&] { return hanging.looked(); }));
    EXPECT_TRUE(hanging.trouble().contains("does not answer"_L1));
  }
  EXPECT_LT(time.elapsed(), 2000);
  player.setFileName(home / u"none"_s);
  reader->letGo = true;
  pump.wait(100, [] { return false; });  // the abandoned threads end
}

// A disc that was read as fast as it can be would fill the memory, and would be at its end at once
// where no sound device takes it.
TEST_F(DriveTest, ReadsSomeSecondsAheadOfTheSoundWhateverTakesIt) {
  const QString nowhere = u"--audiofile-file="_s + (home / u"no folder/heard.wav"_s);
  for (const QStringList& output :
       {QStringList{u"--aout=adummy"_s}, QStringList{u"--aout=afile"_s, nowhere}}) {
    const auto reader = std::make_shared<HangingReader>();
    MediaPlayerVlc other(pump, output);
    ReadingDrive playing(pump, other, reader);
    playing.open({});
    ASSERT_TRUE(until([&] { return playing.looked(); }));
    playing.play(1, 10);
    playing.pause();  // before the first sound
    EXPECT_FALSE(pump.wait(700, [&] { return playing.mode() != DiscDrive::Paused; }));
    EXPECT_EQ(playing.place().sectors, 10 * kSectorsPerSecond);
    playing.play(1, 10);
    EXPECT_TRUE(until([&] { return playing.place().sectors > 12 * kSectorsPerSecond; }));
    playing.play(1, 60);  // beyond its end: nothing
    EXPECT_EQ(playing.mode(), DiscDrive::Playing);
    EXPECT_LT(reader->furthest, playing.place().sectors + 12 * kSectorsPerSecond);
  }
}

TEST_F(DriveTest, AScratchIsSilentAndADeadDiscEnds) {
  const auto reader = std::make_shared<HangingReader>();
  reader->goodSectors = 5 * kSectorsPerSecond;
  ReadingDrive scratched(pump, player, reader);
  scratched.open({});
  ASSERT_TRUE(until([&] { return scratched.looked(); }));
  scratched.play(1, 0);
  EXPECT_TRUE(until([&] { return scratched.mode() == DiscDrive::Stopped; }));
  EXPECT_TRUE(scratched.trouble().contains("cannot be read"_L1));
  EXPECT_GT(heard().count('\0'), 300'000);
  EXPECT_LT(heard().size(), qsizetype{9} * kSectorsPerSecond * kSectorBytes);
}

}  // namespace
}  // namespace korvane
