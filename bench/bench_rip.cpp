// korvane-bench rip [SECONDS]: an image of 12 tracks of 240 seconds (or so many) ripped to MP3 with
// all checks, beside libcdio-paranoia reading it alone and LAME encoding it alone, one after the
// other; and what the event loop and a disc that plays feel of it.
#include <cdio/paranoia/paranoia.h>
#include <lame/lame.h>

#include <QCoreApplication>

#include <thread>

#include "bench/bench.h"
#include "bench/bench_music.h"
#include "platform/disc/disc_reader_cdio.h"
#include "platform/disc/disc_sound.h"
#include "platform/ripping/cd_ripper_cdio.h"
#include "platform/ripping/sound_encoder.h"
#include "tests/fakes/disc_image.h"
#include "tests/fakes/loop_pump.h"
#include "tests/fakes/temporary_home.h"

namespace korvane {
namespace {

constexpr int kTracks = 12, kTurns = 3;
constexpr double kPi = 3.14159265358979;
constexpr int kQuality = 2;  // LAME's for 0.75

// Three voices that come and go, and noise as of a snare.
QByteArray music(int seconds) {
  QByteArray sound(qsizetype{seconds} * kSectorsPerSecond * kSectorBytes, Qt::Uninitialized);
  auto* samples = reinterpret_cast<qint16*>(sound.data());
  quint32 seed = 1;
  for (qsizetype i = 0; i < sound.size() / 4; ++i) {
    const double t = static_cast<double>(i) / 44100, beat = std::fmod(t, 0.5);
    seed = seed * 1664525 + 1013904223;
    const double snare = (static_cast<double>(seed) / 4294967296.0 - 0.5) * std::exp(-beat * 12);
    const double voice = std::sin(2 * kPi * 220 * t) * (1 + std::sin(t)) +
                         std::sin(2 * kPi * 554.37 * t) * (1 + std::sin(1.3 * t)) +
                         std::sin(2 * kPi * 1318.5 * t) * std::exp(-beat * 4);
    samples[2 * i] = static_cast<qint16>(4000 * voice + 9000 * snare);
    samples[2 * i + 1] = static_cast<qint16>(4500 * voice - 6000 * snare);
  }
  return sound;
}

// Sectors that libcdio-paranoia gave, of an image.
int bareReading(const QString& image) {
  CdIo_t* disc = cdio_open(image.toUtf8().constData(), DRIVER_BINCUE);
  cdrom_drive_t* drive = cdio_cddap_identify_cdio(disc, CDDA_MESSAGE_FORGETIT, nullptr);
  if (!drive || cdio_cddap_open(drive) != 0) return 0;
  cdrom_paranoia_t* paranoia = cdio_paranoia_init(drive);
  cdio_paranoia_modeset(paranoia, PARANOIA_MODE_FULL & ~PARANOIA_MODE_NEVERSKIP);
  const int end = cdio_cddap_disc_lastsector(drive) + 1;
  int good = 0;
  while (good < end && cdio_paranoia_read_limited(paranoia, nullptr, 20)) ++good;
  cdio_paranoia_free(paranoia);
  cdio_cddap_close(drive);
  return good;
}

// Bytes that LAME alone made of the sound, kept nowhere.
qsizetype bareEncoding(const QByteArray& sound) {
  lame_global_flags* lame = lame_init();
  lame_set_in_samplerate(lame, 44100);
  lame_set_VBR(lame, vbr_off);
  lame_set_brate(lame, 192);
  lame_set_quality(lame, kQuality);
  lame_init_params(lame);
  constexpr int kFrames = 44100;
  std::vector<unsigned char> room(kFrames * 2);
  qsizetype bytes = 0;
  QByteArray part;
  for (qsizetype at = 0; at < sound.size(); at += kFrames * 4) {
    part = sound.mid(at, kFrames * 4);
    bytes += lame_encode_buffer_interleaved(lame, reinterpret_cast<short*>(part.data()),
                                            static_cast<int>(part.size() / 4), room.data(),
                                            static_cast<int>(room.size()));
  }
  bytes += lame_encode_flush(lame, room.data(), static_cast<int>(room.size()));
  lame_close(lame);
  return bytes;
}

// The same by our encoder into a file.
qsizetype ourEncoding(const QByteArray& sound, const QByteArray& path) {
  NewFile file(FileCalls::posix(), path);
  const auto encoder = makeEncoder({}, {}, sound.size() / 4, file);
  constexpr qsizetype kChunk = qsizetype{25} * kSectorBytes;
  for (qsizetype at = 0; encoder && at < sound.size(); at += kChunk)
    encoder->encode({reinterpret_cast<const qint16*>(sound.constData() + at),
                     static_cast<size_t>(std::min(kChunk, sound.size() - at) / 2)});
  return encoder && encoder->finish() ? file.written() : 0;
}

// Plays a disc into nothing at its own speed, and counts what would have come too late.
class Listener {
 public:
  explicit Listener(const QString& image)
      : sound_(DiscSound::make(std::make_shared<DiscReaderCdio>(), image, 0, 1 << 20)),
        thread_([this] { listen(); }) {}
  ~Listener() {
    over_ = true;
    thread_.join();
    sound_->cancel();
  }
  std::atomic<int> lost{0};
  std::atomic<qint64> longestNs{0};

 private:
  static constexpr qint64 kBlockNs = 20'000'000, kBufferNs = 100'000'000;  // of a sound device
  void listen() {
    std::array<char, 44100 * 4 / 50> block;
    QElapsedTimer time;
    while (!over_) {
      time.start();
      for (size_t at = 0; at < block.size();) {
        const qsizetype got = sound_->read(std::span(block).subspan(at));
        if (got <= 0) return;
        at += static_cast<size_t>(got);
      }
      const qint64 took = time.nsecsElapsed();
      longestNs = std::max<qint64>(longestNs, took);
      if (took > kBufferNs) ++lost;
      std::this_thread::sleep_for(std::chrono::nanoseconds(std::max<qint64>(kBlockNs - took, 0)));
    }
  }

  std::shared_ptr<DiscSound> sound_;
  std::atomic<bool> over_{false};
  std::thread thread_;
};

struct Counted : SwdCDRipper::Events {
  void OnExtractionStart(int) override {}
  void OnExtractionEnd(int, const RipResult& result) override {
    clean += result.reading == RipResult::Clean;
  }
  void OnProgress(double, double) override {}
  void OnCDChange(const QString&) override {}
  void OnError(const QString& text) override { std::fprintf(stderr, "%s\n", qUtf8Printable(text)); }
  int clean = 0;
};

struct NoDrives : CdDrives {
  std::vector<SwdCDRipper::Drive> drives() const override { return {}; }
  void eject(const QString&) override {}
};

struct Ripped {
  Cost cost;
  double gapMs = 0;
  int clean = 0, lost = 0;
  double soundWaitMs = 0;
};

// `playing`: an image that is heard meanwhile.
Ripped rip(const QString& image, const QString& folder, const QString& playing) {
  LoopPump pump;
  Counted counted;
  CdRipperCdio ripper(pump, std::make_shared<DiscReaderCdio>(), std::make_unique<NoDrives>());
  ripper.setEvents(&counted);
  ripper.open(image);
  pump.wait(10'000, [&] { return ripper.looked(image); });
  ripper.setSecure(true);
  ripper.setSideBySide(true);
  for (int track = 1; track <= kTracks; ++track)
    ripper.queueTrack({image, track, folder + u'/' + QString::number(track), RipTags{}});
  std::optional<Listener> listener;
  if (!playing.isEmpty()) listener.emplace(playing);
  Ripped ripped;
  ripped.cost = measure([&] {
    ripper.start();
    QElapsedTimer turn;
    turn.start();
    while (ripper.running()) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      QCoreApplication::processEvents();
      ripped.gapMs = std::max(ripped.gapMs, static_cast<double>(turn.nsecsElapsed()) / 1e6);
      turn.start();
    }
  });
  ripped.clean = counted.clean;
  if (listener) {
    ripped.lost = listener->lost;
    ripped.soundWaitMs = static_cast<double>(listener->longestNs) / 1e6;
  }
  return ripped;
}

}  // namespace

int benchRip(const QStringList& arguments) {
  const int seconds = arguments.isEmpty() ? 240 : arguments[0].toInt();
  const TemporaryHome home;
  home.folder(u"rip"_s);
  const QByteArray sound = music(seconds);
  const QString image = makeDiscImage(home.path(), u"disc"_s, QList<int>(kTracks, seconds));
  QFile bin(home / u"disc.bin"_s);
  if (!bin.open(QIODevice::WriteOnly)) return 1;
  for (int track = 0; track < kTracks; ++track) bin.write(sound);
  bin.close();
  const QString played = makeDiscImage(home.path(), u"played"_s, {600});

  int good = 0;
  const Cost read = measure([&] { good = bareReading(image); });
  double bare = 1e9, bareCpu = 1e9, ours = 1e9;
  qsizetype bareBytes = 0, ourBytes = 0;
  for (int turn = 0; turn < kTurns; ++turn) {
    const Cost cost = measure([&] { bareBytes = bareEncoding(sound); });
    bare = std::min(bare, cost.seconds);
    bareCpu = std::min(bareCpu, cost.cpuSeconds);
    ours = std::min(
        ours, fastest(1, [&] { ourBytes = ourEncoding(sound, (home / u"one.mp3"_s).toUtf8()); }));
  }
  const Ripped alone = rip(image, home / u"rip"_s, {}), heard = rip(image, home / u"rip"_s, played);
  const double cores = std::thread::hardware_concurrency();
  const double ratio = alone.cost.seconds / (read.seconds + kTracks * bare);
  const double busy = alone.cost.cpuSeconds / alone.cost.seconds / cores;
  const bool right = good == kTracks * seconds * kSectorsPerSecond && bareBytes == ourBytes &&
                     alone.clean == kTracks && heard.clean == kTracks && heard.lost == 0;
  Json("rip")
      .add(alone.cost)
      .add("bare_reading_s", read.seconds)
      .add("bare_encoding_s", kTracks * bare)
      .add("ratio", ratio)
      .add("cores_busy", busy)
      .add("cpu_ratio", alone.cost.cpuSeconds / (read.cpuSeconds + kTracks * bareCpu))
      .add("encoding_speed", seconds / ours)
      .add("encoding_ratio", bare / ours)
      .add("max_gap_ms", std::max(alone.gapMs, heard.gapMs))
      .add("sound_wait_ms", heard.soundWaitMs)
      .add("blocks_lost", heard.lost)
      .add("right", right)
      .print();
  return right && ratio <= 0.6 && bare / ours >= 0.97 ? 0 : 1;
}

}  // namespace korvane
