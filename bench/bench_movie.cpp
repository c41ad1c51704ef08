// korvane-bench movie HOME FILE: the console playing a movie in its window, in the page and over
// the whole screen, beside libVLC alone decoding the same file to nothing: processor time, frames,
// the first frame and memory. By turns, after all players have played.
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <atomic>
#include <optional>
#include <thread>

#include "bench/bench.h"
#include "bench/bench_console.h"
#include "bench/bench_movies.h"
#include "platform/video/video_player_vlc.h"
#include "platform/vlc/vlc_library.h"
#include "tests/fakes/fake_winsock.h"
#include "view/controls/surface_widget.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;
constexpr int kTurns = 3, kSettleMs = 1000, kPlayMs = 6000, kStarts = 15;
const auto kSilent = u"--aout=adummy"_s;

double ms(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

double part(std::vector<double> all, double share) {  // 0.5 is the median
  if (all.empty()) return 0;
  std::ranges::sort(all);
  return all[static_cast<size_t>(share * static_cast<double>(all.size() - 1))];
}

// libVLC's player without anything of ours.
class Bare {
 public:
  Bare(const QString& path, const QStringList& arguments)
      : vlc_(VlcLibrary::open(&error_)), path_(QFile::encodeName(path)) {
    instance_ = vlc_->instance(arguments);
    player_ = vlc_->libvlc_media_player_new(instance_);
  }
  ~Bare() {
    stop();
    vlc_->libvlc_media_player_release(player_);
  }
  Bare(const Bare&) = delete;

  // Its frames come into memory, and are left there.
  void takeFrames() {
    vlc_->libvlc_video_set_format_callbacks(
        player_,
        [](void** self, char* kind, unsigned* width, unsigned* height, unsigned* pitches,
           unsigned* lines) -> unsigned {
          std::copy_n("I420", 4, kind);
          for (int i = 0; i < 3; ++i) {
            pitches[i] = i == 0 ? *width : *width / 2;
            lines[i] = i == 0 ? *height : *height / 2;
          }
          static_cast<Bare*>(*self)->planes_.resize(size_t{*width} * *height * 3 / 2);
          static_cast<Bare*>(*self)->luma_ = size_t{*width} * *height;
          return 1;
        },
        nullptr);
    vlc_->libvlc_video_set_callbacks(
        player_,
        [](void* self, void** planes) -> void* {
          auto& bare = *static_cast<Bare*>(self);
          planes[0] = bare.planes_.data();
          planes[1] = bare.planes_.data() + bare.luma_;
          planes[2] = bare.planes_.data() + bare.luma_ * 5 / 4;
          return nullptr;
        },
        nullptr,
        [](void* self, void*) {
          auto& bare = *static_cast<Bare*>(self);
          if (!bare.shown_.exchange(true)) bare.first_ = Clock::now();
        },
        this);
  }
  void play() {
    shown_ = false;
    media_ = vlc_->libvlc_media_new_path(instance_, path_.constData());
    vlc_->libvlc_media_player_set_media(player_, media_);
    vlc_->libvlc_media_player_play(player_);
  }
  void stop() {
    vlc_->libvlc_media_player_stop(player_);
    if (media_) vlc_->libvlc_media_release(media_);
    media_ = nullptr;
  }
  libvlc_media_stats_t statistics() const {
    libvlc_media_stats_t all{};
    vlc_->libvlc_media_get_stats(media_, &all);
    return all;
  }
  // From the call to its first frame, in ms.
  double started() {
    const Clock::time_point begin = Clock::now();
    play();
    while (!shown_ && Clock::now() - begin < std::chrono::seconds(5))
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    const double took = ms(first_ - begin);
    stop();
    return took;
  }

 private:
  QString error_;
  const VlcLibrary* vlc_;
  QByteArray path_;
  libvlc_instance_t* instance_ = nullptr;
  libvlc_media_player_t* player_ = nullptr;
  libvlc_media_t* media_ = nullptr;
  std::vector<unsigned char> planes_;
  size_t luma_ = 0;
  std::atomic<bool> shown_ = false;
  Clock::time_point first_;
};

// The pump as the player sees it: knows when news of a new frame was handed over.
class FramePump : public Pump {
 public:
  explicit FramePump(Pump& pump) : pump_(pump) {}
  void doEvents() override { pump_.doEvents(); }
  void breathe() override { pump_.breathe(); }
  bool wait(int milliseconds, const std::function<bool()>& done) override {
    return pump_.wait(milliseconds, done);
  }
  void later(std::function<void()> work) override {
    pump_.later([this, work = std::move(work), handed = Clock::now()] {
      work();
      const auto frame = picture ? picture->newest() : nullptr;
      if (!frame || frame.get() == last_) return;
      last_ = frame.get();
      if (!unpainted) unpainted = handed;
      ++frames;
    });
  }
  void inBackground(std::function<void()> work, std::function<void()> done) override {
    pump_.inBackground(std::move(work), std::move(done));
  }

  VideoPicture* picture = nullptr;
  std::optional<Clock::time_point> unpainted;  // when the frame came that is not painted yet
  int frames = 0;

 private:
  Pump& pump_;
  const VideoFrame* last_ = nullptr;  // only compared
};

struct Played {
  double cpu = 0;
  int given = 0, painted = 0;
  std::vector<double> late;  // from a frame's coming to the end of its paint, in ms
};

class Seat {
 public:
  Seat(const QString& home, const QString& directory)
      : bench_(home, [] { return std::make_unique<FakeWinsock>(); },
               {[this](Pump& pump) {
                  frames_.emplace(pump);
                  auto made = std::make_unique<VideoPlayerVlc>(*frames_, QStringList{kSilent});
                  frames_->picture = &made->picture();
                  return made;
                },
                nullptr}),
        console_(bench_.console) {
    stands_ = console_.SubMain();
    if (!stands_) return;
    bench_.window->modalOpened = [this](Form& box) {
      bench_.pump.later([this, &box] { console_.desk.host.hide(box); });
    };
    console_.desk.settings.write(key::MovieResume, u"NO"_s, nullptr);
    for (int i = kDvdDirectories; i < kMovieDirectories; ++i)
      console_.movies.directories.setDirectory(
          i, i == kDvdDirectories ? directory : directory + u"/none"_s, nullptr);
    console_.desk.tabs.imgTabs_Click(kMoviesTab);
    list_ = dynamic_cast<Grid*>(console_.desk.frmMain.find(u"MovieList"));
    stands_ = bench_.pump.wait(5000, [this] { return list_->maxRows() == 1; });
    bench_.pump.wait(600, {});
    for (QWidget* widget : bench_.window->stage().findChildren<QWidget*>())
      if (auto* surface = dynamic_cast<SurfaceWidget*>(widget)) surfaces_.push_back(surface);
  }

  bool stands() const { return stands_; }
  // From the press on the row to the first painted frame, in ms; 0 when none came in time.
  double start() {
    const int before = painted();
    const Clock::time_point begin = Clock::now();
    list_->SetActiveCell(1, 1);
    console_.desk.frmMain.fire(*list_, {.type = Event::DblClick, .column = 1, .row = 1});
    return bench_.pump.wait(5000, [&] { return painted() > before; }) ? ms(Clock::now() - begin)
                                                                      : 0;
  }
  void stop() {
    console_.movies.full.set(false);
    console_.movies.transport.press(TransportButton::Stop);
    rest(300);
  }
  void large() { console_.movies.full.set(true); }
  void rest(int milliseconds) { bench_.pump.wait(milliseconds, {}); }
  QSize size() const {
    for (const SurfaceWidget* surface : surfaces_)
      if (surface->isVisible()) return surface->frames().frameSize();
    return {};
  }
  // Lets it play and adds to `all`.
  void watch(Played& all) {
    const int given = frames_->frames, before = painted();
    int seen = before;
    frames_->unpainted.reset();
    all.cpu += measure([&] {
                 bench_.pump.wait(kPlayMs, [&] {
                   if (seen == painted()) return false;
                   seen = painted();
                   if (frames_->unpainted)
                     all.late.push_back(ms(Clock::now() - *frames_->unpainted));
                   frames_->unpainted.reset();
                   return false;
                 });
               }).cpuSeconds;
    all.given += frames_->frames - given;
    all.painted += painted() - before;
  }

 private:
  int painted() const {
    int all = 0;
    for (const SurfaceWidget* surface : surfaces_) all += surface->frames().painted();
    return all;
  }

  std::optional<FramePump> frames_;
  BenchConsole bench_;
  Console& console_;
  Grid* list_ = nullptr;
  std::vector<SurfaceWidget*> surfaces_;
  bool stands_ = false;
};

struct BarePlayed {
  double cpu = 0;
  int shown = 0, lost = 0;
};

void watchBare(Bare& bare, Seat& seat, BarePlayed& all) {
  bare.play();
  seat.rest(kSettleMs);
  const libvlc_media_stats_t before = bare.statistics();
  all.cpu += measure([&] { seat.rest(kPlayMs); }).cpuSeconds;
  const libvlc_media_stats_t after = bare.statistics();
  all.shown += after.i_displayed_pictures - before.i_displayed_pictures;
  all.lost += after.i_lost_pictures - before.i_lost_pictures;
  bare.stop();
}

void addWatched(Json& json, const QByteArray& name, const Played& ours, const BarePlayed& bare) {
  const auto called = [&](const char* what) { return (name + what); };
  json.add(called("_cpu_s").constData(), ours.cpu / kTurns);
  json.add(called("_cpu_ratio").constData(), ours.cpu / bare.cpu);
  json.add(called("_given").constData(), ours.given)
      .add(called("_painted").constData(), ours.painted);
  json.add(called("_late_p99_ms").constData(), part(ours.late, 0.99));
  json.add(called("_late_most_ms").constData(), part(ours.late, 1));
}

int bareResidentKib(const QString& path) {
  QProcess process;
  process.start(QCoreApplication::applicationFilePath(), {u"movie-bare"_s, path});
  return process.waitForFinished(20'000) ? process.readAllStandardOutput().trimmed().toInt() : 0;
}

}  // namespace

int benchBareMovie(const QStringList& arguments) {
  if (arguments.size() != 1) return 2;
  Bare bare(arguments[0], {kSilent, u"--vout=dummy"_s});
  bare.play();
  std::this_thread::sleep_for(std::chrono::milliseconds(kPlayMs));
  std::printf("%d\n", residentKib());
  return 0;
}

int benchMovie(const QStringList& arguments) {
  if (arguments.size() != 2) return 2;
  const QTemporaryDir movies;
  QFile::link(arguments[1], movies.path() + u"/movie.mpg"_s);
  const int bareKib = bareResidentKib(arguments[1]);
  Seat seat(arguments[0], movies.path());
  if (!seat.stands()) return 1;

  seat.start();
  seat.rest(kPlayMs / 2);
  const int pageKib = residentKib();
  seat.large();
  seat.rest(kPlayMs / 2);
  const int largeKib = residentKib();
  const QSize large = seat.size();
  seat.stop();
  Bare bare(arguments[1], {kSilent, u"--vout=dummy"_s}), framed(arguments[1], {kSilent});
  framed.takeFrames();
  framed.started();
  bare.play();
  seat.rest(kSettleMs);
  bare.stop();

  Played page, screen;
  BarePlayed nothing;
  for (int turn = 0; turn < kTurns; ++turn) {
    for (Played* watched : {&page, &screen}) {
      seat.start();
      if (watched == &screen) seat.large();
      seat.rest(kSettleMs);
      seat.watch(*watched);
      seat.stop();
    }
    watchBare(bare, seat, nothing);
  }
  std::vector<double> ours, theirs;
  for (int i = 0; i < kStarts; ++i) {
    ours.push_back(seat.start());
    seat.stop();
    theirs.push_back(framed.started());
  }

  Json json("movie");
  json.add("bare_cpu_s", nothing.cpu / kTurns).add("bare_shown", nothing.shown);
  json.add("bare_lost", nothing.lost);
  addWatched(json, "page", page, nothing);
  addWatched(json, "screen", screen, nothing);
  json.add("screen_width", large.width()).add("screen_height", large.height());
  json.add("first_frame_ms", part(ours, 0.5)).add("first_frame_most_ms", part(ours, 1));
  json.add("bare_first_frame_ms", part(theirs, 0.5));
  json.add("first_frame_ratio", part(ours, 0.5) / part(theirs, 0.5));
  json.add("bare_mib", bareKib / 1024.0).add("page_mib", pageKib / 1024.0);
  json.add("screen_mib", largeKib / 1024.0);
  json.print();
  return page.painted > 0 && screen.painted > 0 && part(ours, 0) > 0 ? 0 : 1;
}

}  // namespace korvane
