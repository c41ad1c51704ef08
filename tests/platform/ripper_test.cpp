// The ripper over real images, the real encoders, and discs and disks that misbehave.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <taglib/fileref.h>
#include <taglib/tpropertymap.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>

#include <thread>

#include "platform/disc/disc_reader_cdio.h"
#include "platform/ripping/cd_ripper_cdio.h"
#include "tests/fakes/disc_image.h"
#include "tests/fakes/full_disk.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/print.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

struct HandDrives : CdDrives {
  std::vector<SwdCDRipper::Drive> drives() const override { return known; }
  void eject(const QString& source) override { ejected << source; }
  std::vector<SwdCDRipper::Drive> known;
  QStringList ejected;
};

// Writes down what it hears.
struct Heard : SwdCDRipper::Events {
  void OnExtractionStart(int job) override { words << u"start %1"_s.arg(job); }
  void OnExtractionEnd(int job, const RipResult& result) override {
    words << u"end %1"_s.arg(job);
    results.push_back(result);
  }
  void OnProgress(double, double all) override {
    ++progress;
    EXPECT_GE(all, total);
    total = all;
  }
  void OnCDChange(const QString& source) override { changes << source; }
  void OnError(const QString& text) override { error = text; }
  QStringList words, changes;
  std::vector<RipResult> results;
  int progress = 0;
  double total = 0;
  QString error;
};

// Sound in which no stretch is like another.
QByteArray noise(int sectors) {
  QByteArray sound(qsizetype{sectors} * kSectorBytes, Qt::Uninitialized);
  quint32 seed = 7;
  for (char& byte : sound) byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
  return sound;
}

// A disc of two tracks of 4 seconds, in a drive that does what a test wants.
class BadDisc : public DiscReader {
 public:
  static constexpr int kTrack = 4 * kSectorsPerSecond;
  struct Sectors : SectorReader {
    explicit Sectors(BadDisc& from) : disc(from) {}
    BadDisc& disc;
    bool read(int first, int count, char* to) override { return disc.read(first, count, to); }
    int remembered() const override { return disc.remembered; }
  };
  DiscLook look(const QString&, const DiscLook&) override {
    DiscLook look;
    look.state = pulled ? DiscLook::NoDisc : DiscLook::Ready;
    if (!pulled) look.disc.tracks = {{0, kTrack, true, {}, {}}, {kTrack, kTrack, true, {}, {}}};
    return look;
  }
  std::unique_ptr<SectorReader> sectors(const QString&) override {
    return std::make_unique<Sectors>(*this);
  }
  void eject(const QString&) override {}

  bool read(int first, int count, char* to) {
    EXPECT_TRUE(first >= 0 && first + count <= 2 * kTrack) << "over-read at " << first;
    ++reads;
    if (first + count > pulledAt) pulled = true;
    hung = first + count > hangsAt;
    while (first + count > hangsAt && !letGo)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    for (int i = first; i < first + count; ++i) {
      if (!failures.contains(i) || failures[i]-- <= 0) continue;
      std::this_thread::sleep_for(slow);
      return false;
    }
    // A drive that loses its place begins some samples late.
    const int shift = jitters && reads % 5 == 0 && first > 0 && first + count < 2 * kTrack ? 88 : 0;
    std::copy_n(sound.constData() + qsizetype{first} * kSectorBytes + shift, count * kSectorBytes,
                to);
    return !pulled;
  }

  const QByteArray sound = noise(2 * kTrack);
  QHash<int, int> failures;  // of a sector: how often it fails
  std::chrono::milliseconds slow{0};
  bool jitters = false;
  int pulledAt = 1 << 20, reads = 0, remembered = 1200;
  std::atomic<int> hangsAt{1 << 20};
  std::atomic<bool> pulled{false}, hung{false}, letGo{false};
};

// With threads for what may never come back.
struct AsidePump : LoopPump {
  void aside(std::function<void()> work, std::function<void()> done) override {
    std::thread([this, work = std::move(work), done = std::move(done)] {
      work();
      later(done);
    }).detach();
  }
};

struct RipTest : testing::Test {
  void make(std::shared_ptr<DiscReader> reader) {
    ripper.reset();
    auto hand = std::make_unique<HandDrives>();
    drives = hand.get();
    ripper = std::make_unique<CdRipperCdio>(pump, std::move(reader), std::move(hand), disk);
    ripper->setEvents(&heard);
  }
  void open(const QString& source) {
    ripper->open(source);
    ASSERT_TRUE(pump.wait(5000, [&] { return ripper->looked(source); }));
    ASSERT_TRUE(ripper->disc(source)) << ripper->trouble(source).toStdString();
  }
  // The tracks 1 to `tracks`, to files "1", "2"...
  void queue(const QString& source, int tracks, const std::optional<RipTags>& tags = {}) {
    heard = {};
    for (int track = 1; track <= tracks; ++track)
      ripper->queueTrack({source, track, out + u'/' + QString::number(track), tags});
  }
  void rip(const QString& source, int tracks, const std::optional<RipTags>& tags = {}) {
    queue(source, tracks, tags);
    ripper->start();
    EXPECT_TRUE(ripper->running());
    ASSERT_TRUE(pump.wait(60'000, [&] { return !ripper->running(); }));
  }
  QStringList files() const { return QDir(out).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
  static QByteArray output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    return process.readAllStandardOutput();
  }
  QByteArray samples(const QString& file) const {
    return output(u"ffmpeg"_s,
                  {u"-v"_s, u"error"_s, u"-i"_s, out + u'/' + file, u"-f"_s, u"s16le"_s, u"-"_s});
  }

  TemporaryHome home;
  AsidePump pump;
  FullDisk disk;
  Heard heard;
  QString out = (home.folder(u"rip"_s), home / u"rip"_s);
  HandDrives* drives = nullptr;
  std::unique_ptr<CdRipperCdio> ripper;
};

// Whatever is asked for: the samples of the image from its first sector to its last, in files that
// end in the order of their jobs.
TEST_F(RipTest, FlacIsTheImageBitForBit) {
  make(std::make_shared<DiscReaderCdio>());
  const QString image = makeDiscImage(home.path(), u"disc"_s, {2, 3, 1});
  open(image);
  EXPECT_EQ(ripper->drives().back().name, u"disc.cue"_s);
  for (const bool secure : {false, true})
    for (const bool both : {false, true}) {
      ripper->setEncoder({RipFormat::Flac});
      ripper->setSecure(secure);
      ripper->setSideBySide(both);
      QElapsedTimer time;
      time.start();
      rip(image, 3);
      EXPECT_EQ(heard.error, QString());
      EXPECT_LE(heard.progress, time.elapsed() / 100 + 2);
      EXPECT_EQ(heard.total, 100);
      ASSERT_EQ(heard.results.size(), 3u);
      EXPECT_EQ(heard.words.filter(u"end"_s), QStringList({u"end 0"_s, u"end 1"_s, u"end 2"_s}));
      EXPECT_TRUE(both || heard.words.indexOf(u"start 1"_s) > heard.words.indexOf(u"end 0"_s));
      EXPECT_EQ(files(), QStringList({u"1.flac"_s, u"2.flac"_s, u"3.flac"_s}));
      const int seconds[] = {2, 3, 1};
      for (int i = 0; i < 3; ++i) {
        const QByteArray sound = toneSectors(seconds[i], static_cast<qint16>(1000 * (i + 1)));
        EXPECT_TRUE(samples(u"%1.flac"_s.arg(i + 1)) == sound) << i << secure << both;
        const RipResult& result = heard.results[static_cast<size_t>(i)];
        EXPECT_EQ(result.reading, secure ? RipResult::Clean : RipResult::Unchecked);
        Crc32 checksum;
        checksum.add(sound);
        EXPECT_EQ(result.checksum, checksum.value());
      }
    }
  Crc32 known;
  known.add("123456789");
  EXPECT_EQ(known.value(), 0xCBF43926U);
}

TEST_F(RipTest, EveryFormatHasItsLengthAndTags) {
  make(std::make_shared<DiscReaderCdio>());
  const QString image = makeDiscImage(home.path(), u"disc"_s, {5});
  open(image);
  home.put(u"cover.png"_s,
           QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+"
                                  "M9QDwADhgGAWjR9awAAAABJRU5ErkJggg=="));
  const QString longTitle = u"Möwen über dem Hafen von Nirgendwo ガ"_s;
  const RipTags tags{longTitle, u"Lumen Quay"_s,         u"Тихая вода"_s, u"1998"_s, u"Rock"_s,
                     7,         home.get(u"cover.png"_s)};
  for (const RipFormat format : {RipFormat::Mp3, RipFormat::Flac, RipFormat::Opus}) {
    ripper->setEncoder({format});
    rip(image, 1, tags);
    ASSERT_EQ(heard.results.size(), 1u) << heard.error.toStdString();
    const QString path = heard.results[0].path;
    const TagLib::FileRef file(path.toUtf8().constData());
    ASSERT_FALSE(file.isNull()) << path.toStdString();
    EXPECT_EQ(file.tag()->title(), TagLib::String(longTitle.toStdWString()));
    EXPECT_EQ(file.tag()->album(), TagLib::String(tags.album.toStdWString()));
    EXPECT_EQ(file.tag()->artist(), "Lumen Quay");
    EXPECT_EQ(file.tag()->genre(), "Rock");
    EXPECT_EQ(file.tag()->year(), 1998u);
    EXPECT_EQ(file.tag()->track(), 7u);
    EXPECT_NEAR(file.audioProperties()->lengthInMilliseconds(), 5000, 50);  // whole frames of MP3
    const QByteArray probed =
        output(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s,
                              u"format=duration,bit_rate:stream=codec_name"_s, path});
    const bool opus = format == RipFormat::Opus;
    EXPECT_TRUE(probed.contains("duration=5.0")) << probed.constData();
    EXPECT_TRUE(probed.contains("codec_name=png")) << probed.constData();
    EXPECT_EQ(probed.contains("codec_name=mp3"), format == RipFormat::Mp3);
    EXPECT_EQ(probed.contains("codec_name=opus"), opus);
  }
  const QByteArray mp3 = home.get(u"rip/1.mp3"_s), last = mp3.right(128);
  EXPECT_TRUE(mp3.startsWith(QByteArray("ID3\x03\x00", 5)));
  EXPECT_EQ(last.left(33), "TAG" + u"Möwen über dem Hafen von Nirge"_s.toLatin1());
  EXPECT_EQ(last[126], 7);
  const qsizetype info = mp3.indexOf("Info");
  EXPECT_TRUE(info > 0 && mp3.mid(info + 120, 4) == "LAME") << info;
  rip(image, 1);
  ripper->setEncoder({RipFormat::Mp3});
  rip(image, 1);
  EXPECT_TRUE(home.get(u"rip/1.mp3"_s).startsWith("\xff\xfb"));  // none were asked for
}

// What a drive may do to a track: what is known of it afterwards, and that the rest is right.
TEST_F(RipTest, WhatCannotBeReadIsSilentAndSaid) {
  struct Case {
    const char* what;
    QHash<int, int> failures;
    bool jitters;
    RipResult::Reading plain, secure;
    QList<int> dead, seconds;
    int remembered = 1200;
  };
  constexpr int kAlways = 1 << 30;
  const Case cases[] = {
      {"good", {}, false, RipResult::Unchecked, RipResult::Clean, {}, {}},
      {"flaky", {{100, 2}, {101, 2}}, false, RipResult::Unchecked, RipResult::Repaired, {}, {1}},
      {"loses its place", {}, true, RipResult::Unchecked, RipResult::Repaired, {}, {}},
      {"scratch",
       {{149, kAlways}, {150, kAlways}},
       false,
       RipResult::Doubtful,
       RipResult::Doubtful,
       {149, 150},
       {1, 2}},
      {"scratched image",
       {{149, kAlways}},
       false,
       RipResult::Doubtful,
       RipResult::Doubtful,
       {149},
       {1},
       0},
      {"dead end", {{299, kAlways}}, false, RipResult::Doubtful, RipResult::Doubtful, {299}, {3}},
  };
  for (const Case& c : cases)
    for (const bool secure : {false, true}) {
      if (c.jitters && !secure) continue;
      BadDisc disc;
      disc.failures = c.failures;
      disc.jitters = c.jitters;
      disc.remembered = c.remembered;
      BadDisc::Sectors sectors(disc);
      TrackReader::How how;
      how.secure = secure;
      TrackReader reader(sectors, {0, BadDisc::kTrack, 0, 2 * BadDisc::kTrack}, how);
      QByteArray got(qsizetype{BadDisc::kTrack} * kSectorBytes, 'x');
      ASSERT_TRUE(reader.read(BadDisc::kTrack, got.data())) << c.what;
      const RipResult result = reader.result();
      EXPECT_EQ(result.reading, secure ? c.secure : c.plain) << c.what << secure;
      for (const int second : c.seconds)
        EXPECT_EQ(result.doubtful.contains(second), result.reading != RipResult::Unchecked)
            << c.what << secure << second;
      int wrong = 0;
      for (int i = 0; i < BadDisc::kTrack; ++i) {
        const qsizetype at = qsizetype{i} * kSectorBytes;
        const QByteArray wanted =
            c.dead.contains(i) ? QByteArray(kSectorBytes, '\0') : disc.sound.mid(at, kSectorBytes);
        wrong += got.mid(at, kSectorBytes) != wanted;
      }
      EXPECT_EQ(wrong, 0) << c.what << secure;
    }
}

// A place that takes long is left: the run goes on, and the place is said.
TEST_F(RipTest, AScratchTakesNoLongerThanItsLimit) {
  for (const bool secure : {false, true}) {
    BadDisc disc;
    disc.slow = std::chrono::milliseconds(20);
    for (int i = 75; i < 200; ++i) disc.failures[i] = 1 << 30;
    BadDisc::Sectors sectors(disc);
    TrackReader::How how;
    how.secure = secure;
    how.limit = std::chrono::milliseconds(200);
    TrackReader reader(sectors, {0, BadDisc::kTrack, 0, BadDisc::kTrack}, how);
    QByteArray got(qsizetype{BadDisc::kTrack} * kSectorBytes, 'x');
    QElapsedTimer time;
    time.start();
    ASSERT_TRUE(reader.read(BadDisc::kTrack, got.data()));
    EXPECT_LT(time.elapsed(), 1500) << secure;
    EXPECT_EQ(reader.result().reading, RipResult::Doubtful);
    EXPECT_TRUE(reader.result().doubtful.contains(1) && reader.result().doubtful.contains(2));
    EXPECT_TRUE(got.right(75 * kSectorBytes) ==
                disc.sound.mid(225 * kSectorBytes, 75 * kSectorBytes));
    EXPECT_FALSE(got.contains(QByteArray(kSectorBytes, 'x')));
  }
}

TEST_F(RipTest, ADiscPulledOutEndsTheRunInWords) {
  for (const bool secure : {false, true}) {
    const auto disc = std::make_shared<BadDisc>();
    disc->pulledAt = BadDisc::kTrack + 150;  // within the second track
    make(disc);
    open(u"drive"_s);
    ripper->setSecure(secure);
    ripper->setEncoder({RipFormat::Flac});
    rip(u"drive"_s, 2);
    EXPECT_TRUE(heard.error.contains(u"Track"_s) && heard.error.contains(u"taken out"_s))
        << heard.error.toStdString();
    for (const QString& file : files()) EXPECT_EQ(file, u"1.flac"_s);
    queue(u"drive"_s, 1);  // and the next one cannot begin
    ASSERT_TRUE(pump.wait(5000, [&] { return !ripper->disc(u"drive"_s); }));
    ripper->start();
    ASSERT_TRUE(pump.wait(5000, [&] { return !ripper->running(); }));
    EXPECT_TRUE(heard.error.contains(u"no disc"_s)) << heard.error.toStdString();
  }
}

TEST_F(RipTest, AbortEndsAtOnceThoughTheDriveHangs) {
  const auto disc = std::make_shared<BadDisc>();
  make(disc);
  open(u"drive"_s);
  disc->hangsAt = 100;
  queue(u"drive"_s, 2);
  ripper->start();
  ASSERT_TRUE(pump.wait(5000, [&] { return disc->hung && !files().isEmpty(); }));
  QElapsedTimer time;
  time.start();
  ripper->abort();
  EXPECT_LT(time.elapsed(), 1000);
  EXPECT_FALSE(ripper->running());
  EXPECT_EQ(files(), QStringList());
  heard = {};
  EXPECT_FALSE(pump.wait(200, [&] { return !heard.words.isEmpty() || !heard.error.isEmpty(); }));
  ripper->finish(u"drive"_s);  // as soon as nobody reads in it
  EXPECT_FALSE(pump.wait(100, [&] { return !drives->ejected.isEmpty(); }));
  disc->letGo = true;
  EXPECT_TRUE(pump.wait(2000, [&] { return !drives->ejected.isEmpty(); }));
  rip(u"drive"_s, 2);
  EXPECT_EQ(files().size(), 2) << heard.error.toStdString();
}

TEST_F(RipTest, ADiskThatRefusesEndsTheRunInWords) {
  make(std::make_shared<DiscReaderCdio>());
  const QString image = makeDiscImage(home.path(), u"disc"_s, {20, 20});
  open(image);
  home.put(u"rip/1.mp3"_s, "an older song");
  disk.full = true;
  ripper->setSideBySide(true);
  rip(image, 2);
  EXPECT_TRUE(heard.error.contains(u"disk is full"_s) && heard.error.contains(u"bytes"_s))
      << heard.error.toStdString();
  EXPECT_EQ(files(), QStringList(u"1.mp3"_s));
  EXPECT_EQ(home.get(u"rip/1.mp3"_s), "an older song");
  disk.full = false;
  out = home / u"gone"_s;
  rip(image, 1);
  EXPECT_TRUE(heard.error.contains(u"folder does not exist"_s)) << heard.error.toStdString();
}

TEST_F(RipTest, DrivesComeAndGoAndRestWhenClosed) {
  const auto disc = std::make_shared<BadDisc>();
  make(disc);
  drives->known = {{u"a"_s, u"One"_s}};
  EXPECT_FALSE(ripper->looked(u"a"_s));
  open(u"a"_s);
  EXPECT_EQ(ripper->drives().size(), 1u);  // once, though it is asked for twice
  drives->known.push_back({u"b"_s, u"Two"_s});
  drives->changed();
  EXPECT_TRUE(pump.wait(5000, [&] { return heard.changes.contains(u"b"_s); }));
  EXPECT_TRUE(heard.changes.contains(QString()));
  disc->pulled = true;
  EXPECT_TRUE(pump.wait(5000, [&] { return !ripper->disc(u"a"_s) && !ripper->disc(u"b"_s); }));
  ripper->close();
  disc->pulled = false;
  heard = {};
  EXPECT_FALSE(pump.wait(1300, [&] { return !heard.changes.isEmpty(); }));
  EXPECT_FALSE(ripper->looked(u"a"_s));
}

// A loop that needs nothing of Qt's, for a child that is killed.
struct QueuePump : LoopPump {
  void later(std::function<void()> work) override {
    const std::lock_guard lock(mutex);
    waiting.push_back(std::move(work));
  }
  void runAll() {
    std::unique_lock lock(mutex);
    const auto due = std::exchange(waiting, {});
    lock.unlock();
    for (const auto& work : due) work();
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
  std::mutex mutex;
  std::vector<std::function<void()>> waiting;
};

// Rips the image again and again, until it is killed.
[[noreturn]] void ripForEver(const QString& image, const QString& folder) {
  QueuePump pump;
  CdRipperCdio ripper(pump, std::make_shared<DiscReaderCdio>(), std::make_unique<HandDrives>());
  ripper.open(image);
  ripper.setSideBySide(true);
  while (true) {
    while (!ripper.disc(image) || ripper.running()) pump.runAll();
    for (int track = 1; track <= 4; ++track)
      ripper.queueTrack({image, track, folder + u'/' + QString::number(track), RipTags{}});
    ripper.start();
  }
}

TEST_F(RipTest, KilledAtAnyMomentEveryFileIsWhole) {
  const QString image = makeDiscImage(home.path(), u"disc"_s, {1, 2, 1, 1});
  make(std::make_shared<DiscReaderCdio>());
  open(image);
  QElapsedTimer time;
  time.start();
  rip(image, 4, RipTags{});
  const qint64 longest = 2 * time.nsecsElapsed();
  QHash<QString, QByteArray> whole;
  for (const QString& file : files()) whole[file] = home.get(u"rip/"_s + file);
  ASSERT_EQ(whole.size(), 4);
  int partial = 0, done = 0;
  for (int moment = 0; moment < 100; ++moment) {
    for (const QString& file : files())
      if (whole.contains(file)) QFile::remove(out + u'/' + file);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) ripForEver(image, out);
    std::this_thread::sleep_for(std::chrono::nanoseconds(longest * (moment * 37 % 100) / 100));
    ::kill(child, SIGKILL);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    for (const QString& file : files()) {
      if (whole.contains(file)) {
        ++done;
        EXPECT_TRUE(home.get(u"rip/"_s + file) == whole[file]) << file.toStdString();
      } else {
        ++partial;
        EXPECT_TRUE(file.startsWith(u".korvane-"_s) && file.endsWith(u'~')) << file.toStdString();
      }
    }
  }
  EXPECT_GT(partial, 5);  // it was killed at its work
  EXPECT_GT(done, 5);
  rip(image, 1, RipTags{});
  for (const QString& file : files()) EXPECT_TRUE(whole.contains(file)) << file.toStdString();
}

}  // namespace
}  // namespace korvane
