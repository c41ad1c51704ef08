// korvane-bench movies HOME: the page of 5,000 movies in the four directories of files, and a drag
// through it while stills are made for the rows that come into view.
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include "bench/bench.h"
#include "bench/bench_console.h"
#include "bench/bench_movies.h"
#include "tests/fakes/fake_winsock.h"

namespace korvane {
namespace {

constexpr int kMovies = 5000, kFiles = 4, kFrames = 200, kFrameMs = 16;

// Answers at once. Its pictures were made before, since a player makes them on threads of its own.
class ReadyStills : public MovieStills {
 public:
  ReadyStills() {
    for (int i = 0; i < kStills; ++i) {
      QImage image(MoviePosters::kWidth, MoviePosters::kHeight, QImage::Format_RGB32);
      for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(x + i, y ^ x, 3 * y));
      QBuffer buffer(&stills_[i].jpeg);
      buffer.open(QIODevice::WriteOnly);
      image.save(&buffer, "JPG", 85);
      stills_[i].seconds = 60 + i;
    }
  }
  void make(const QString&, int, int, std::function<void(const MovieStill&)> done) override {
    done(stills_[made++ % kStills]);
  }
  bool busy() const override { return false; }
  void stop() override {}

  int made = 0;

 private:
  static constexpr int kStills = 64;
  MovieStill stills_[kStills];
};

bool makeFiles(const QString& root) {
  for (int i = 0; i < kMovies; ++i) {
    const QString directory = u"%1/%2"_s.arg(root).arg(i % kFiles);
    if (i < kFiles && !QDir().mkpath(directory)) return false;
    QFile file(u"%1/Movie %2.mpg"_s.arg(directory).arg(i));
    if (!file.open(QIODevice::WriteOnly)) return false;
  }
  return true;
}

// Ends with the rows of the list painted.
double openedMs(BenchConsole& bench, const Grid& list) {
  QElapsedTimer timer;
  timer.start();
  bench.console.desk.tabs.imgTabs_Click(kMoviesTab);
  bench.pump.wait(5000, [&] { return list.maxRows() == kMovies; });
  bench.window->stage().repaint();
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

// Of this thread's work, in ms.
struct Drag {
  double sum = 0, longest = 0;  // of a frame: the move and the paint
  double turn = 0;              // the longest turn of the event loop between two frames
};

Drag drag(BenchConsole& bench, const Grid& list) {
  auto& slider = dynamic_cast<Slider&>(*bench.console.desk.frmMain.find(u"VscrollAllSongs"));
  Drag drag;
  for (int frame = 1; frame <= kFrames; ++frame) {
    const double before = workedMs();
    slider.value = 1 + (list.maxRows() - 1) * frame / kFrames;
    bench.console.desk.paging.VscrollAllSongs_Scroll();
    bench.console.desk.paging.VscrollAllSongs_Change();
    bench.window->stage().repaint();
    double since = workedMs();
    drag.sum += since - before;
    drag.longest = std::max(drag.longest, since - before);
    bench.pump.wait(kFrameMs, [&] {
      drag.turn = std::max(drag.turn, workedMs() - std::exchange(since, workedMs()));
      return false;
    });
  }
  return drag;
}

}  // namespace

int benchMovies(const QStringList& arguments) {
  if (arguments.size() != 1) return 2;
  const QTemporaryDir files;
  if (!makeFiles(files.path())) return 1;
  qputenv("XDG_CACHE_HOME", (files.path() + u"/cache"_s).toLocal8Bit());
  ReadyStills stills;
  BenchConsole bench(arguments[0], [] { return std::make_unique<FakeWinsock>(); },
                     {.stills = &stills});
  Console& console = bench.console;
  if (!console.SubMain()) return 1;
  bench.window->modalOpened = [&](Form& box) {
    bench.pump.later([&] { console.desk.host.hide(box); });
  };
  for (int i = 0; i < kFiles; ++i)
    console.movies.directories.setDirectory(kDvdDirectories + i,
                                            u"%1/%2"_s.arg(files.path()).arg(i), nullptr);
  bench.pump.wait(600, {});
  bench.pump.still = true;
  auto& list = dynamic_cast<Grid&>(*console.desk.frmMain.find(u"MovieList"));
  Json json("movies");
  const double before = workedMs();
  json.add("opened_first_ms", openedMs(bench, list)).add("opened_work_ms", workedMs() - before);
  double most = 0;
  for (int visit = 0; visit < 5; ++visit) {
    console.desk.tabs.imgTabs_Click(kMusicTab);
    bench.pump.wait(300, {});
    most = std::max(most, openedMs(bench, list));
  }
  bench.pump.wait(1000, {});
  const int made = stills.made;
  const Drag dragged = drag(bench, list);
  json.add("rows", list.maxRows()).add("opened_later_most_ms", most);
  json.add("drag_frame_ms", dragged.sum / kFrames).add("drag_longest_ms", dragged.longest);
  json.add("turn_longest_ms", dragged.turn).add("stills", stills.made - made);
  json.print();
  return list.maxRows() == kMovies && stills.made > made && list.topRow() > 1 ? 0 : 1;
}

}  // namespace korvane
