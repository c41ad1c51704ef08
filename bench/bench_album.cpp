// korvane-bench sheet HOME, show HOME: the sheet of a folder and a show of its pictures in the
// console at HOME, over real files and decoders.
#include <QElapsedTimer>
#include <QTimer>

#include "bench/bench.h"
#include "bench/bench_console.h"
#include "bench/bench_pictures.h"
#include "bench/made_album.h"
#include "platform/imaging/picture_codecs.h"
#include "tests/fakes/fake_winsock.h"

namespace korvane {
namespace {

constexpr int kFrames = 200, kFrameMs = 16, kMostMs = 60'000;

// The longest time between two turns of the event loop.
class GapWatch {
 public:
  GapWatch() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      longest_ = std::max(longest_, static_cast<double>(since_.nsecsElapsed()) / 1e6);
      since_.start();
    });
    since_.start();
    timer_.start(2);
  }
  double milliseconds() const { return longest_; }

 private:
  QTimer timer_;
  QElapsedTimer since_;
  double longest_ = 0;
};

class SheetInUse {
 public:
  explicit SheetInUse(BenchConsole& bench)
      : bench_(bench),
        form_(bench.console.photos.viewPic.form()),
        sheet_(controlOf<Sheet>(form_, u"picSlide")),
        slider_(controlOf<Slider>(form_, u"vsbSlide")) {}

  // Comes up on the folder, is used and goes. What else comes up goes at once.
  void open(const QString& folder, const std::function<void()>& use) {
    sinceOpened_.start();
    bench_.window->modalOpened = [this, &use](Form& opened) {
      bench_.pump.later([this, &use, &opened] {
        if (&opened == &form_) use();
        bench_.console.desk.host.hide(opened);
      });
    };
    bench_.console.photos.viewPic.open(folder);
    bench_.window->modalOpened = {};
  }
  // Milliseconds from the opening until that is so and painted.
  double until(const std::function<bool()>& so) {
    bench_.pump.wait(kMostMs, [&] {
      mostKib = std::max(mostKib, residentKib());
      return so();
    });
    bench_.window->stage().repaint();
    return static_cast<double>(sinceOpened_.nsecsElapsed()) / 1e6;
  }
  bool pictured(int cells) const {
    const CellSource& source = sheet_.cells();
    if (source.count() == 0) return false;
    for (int cell = 0; cell < std::min(cells, source.count()); ++cell)
      if (!source.picture(cell)) return false;
    return true;
  }
  int inView() const { return sheet_.columns * (sheet_.rect().height / sheet_.cellHeight() + 1); }
  bool ended() const { return !bench_.console.desk.screen.busy(); }
  // The longest frame of a drag from the first row to the last, in ms of this thread's work.
  double drag() {
    double longest = 0;
    for (int frame = 1; frame <= kFrames; ++frame) {
      const double before = workedMs();
      slider_.value = static_cast<double>(sheet_.mostTop) * frame / kFrames;
      form_.fire(slider_, {Event::Scroll});
      bench_.window->stage().repaint();
      longest = std::max(longest, workedMs() - before);
      bench_.pump.wait(kFrameMs, [&] {
        mostKib = std::max(mostKib, residentKib());
        return false;
      });
    }
    return longest;
  }
  int cells() const { return sheet_.cells().count(); }
  bool atEnd() const { return sheet_.top() == sheet_.mostTop; }

  int mostKib = 0;

 private:
  BenchConsole& bench_;
  Form& form_;
  Sheet& sheet_;
  Slider& slider_;
  QElapsedTimer sinceOpened_;
};

}  // namespace

int benchSheet(const QStringList& arguments) {
  constexpr int kLarge = 100, kSmall = 2000;
  constexpr double kFirstMs = 100, kGapMs = 50, kOpenedMs = 300, kMostMib = 120;
  if (arguments.size() != 1) return 2;
  const MadeAlbum large(kLarge, 4000, 3000), small(kSmall, 320, 240);
  PictureCodecs codecs;
  BenchConsole bench(arguments[0], [] { return std::make_unique<FakeWinsock>(); },
                     {.imaging = &codecs});
  if (!bench.console.SubMain()) return 1;
  bench.pump.wait(600, {});
  bench.pump.still = true;
  SheetInUse sheet(bench);
  double first = 0, all = 0, gap = 0, opened = 0, longest = 0;
  sheet.open(large.path(), [&] {
    const GapWatch watch;
    first = sheet.until([&] { return sheet.pictured(1); });
    all = sheet.until([&] { return sheet.ended(); });
    gap = watch.milliseconds();
  });
  sheet.open(small.path(), [&] { sheet.until([&] { return sheet.ended(); }); });
  bool right = sheet.cells() == 0;  // the form has gone
  sheet.open(small.path(), [&] {
    opened = sheet.until([&] { return sheet.pictured(sheet.inView()); });
    right = right && sheet.cells() == kSmall;
    longest = sheet.drag();
    right = right && sheet.atEnd();
  });
  const double mib = sheet.mostKib / 1024.0;
  Json("sheet")
      .add("first_cell_ms", first)
      .add("pictures", kLarge)
      .add("made_ms", all)
      .add("gap_ms", gap)
      .add("thumbnails", kSmall)
      .add("opened_ms", opened)
      .add("drag_longest_ms", longest)
      .add("resident_mib", mib)
      .add("right", right)
      .add("within", first <= kFirstMs && gap <= kGapMs && opened <= kOpenedMs &&
                         longest <= kFrameMs && mib <= kMostMib)
      .print();
  return right ? 0 : 1;
}

int benchShow(const QStringList& arguments) {
  constexpr int kPictures = 4, kChanges = 8;
  constexpr int kAheadMs = 1500;  // the next one is decoded, and the fade over
  if (arguments.size() != 1) return 2;
  const MadeAlbum album(kPictures, 6000, 4000);
  PictureCodecs codecs;
  BenchConsole bench(arguments[0], [] { return std::make_unique<FakeWinsock>(); },
                     {.imaging = &codecs});
  Console& console = bench.console;
  console.desk.settings.write(key::StartAtTouched, u"YES"_s);
  console.desk.settings.write(key::ShowFade, u"400"_s);
  if (!console.SubMain()) return 1;
  console.desk.tabs.imgTabs_Click(kPhotosTab);
  bench.pump.wait(600, {});
  bench.pump.still = true;
  Form& form = console.desk.frmMain;
  const auto& area = controlOf<PictureArea>(form, u"picTransition");
  auto& timer = controlOf<Timer>(form, u"pictimer");
  console.photos.show.start(1, album.path(), album.paths().front().section(u'/', -1));
  bool right = bench.pump.wait(kMostMs, [&] { return !area.picture().empty(); });
  double longest = 0, sum = 0;
  for (int change = 0; change < kChanges; ++change) {
    bench.pump.wait(kAheadMs, {});
    const auto before = area.picture().pixels;
    const double since = workedMs();
    form.fire(timer, {Event::Tick});
    bench.window->stage().repaint();
    const double took = workedMs() - since;
    right = right && area.picture().pixels && area.picture().pixels != before;
    longest = std::max(longest, took);
    sum += took;
  }
  Json("show")
      .add("change_ms", sum / kChanges)
      .add("change_longest_ms", longest)
      .add("right", right)
      .add("within", longest <= kFrameMs)
      .print();
  return right ? 0 : 1;
}

}  // namespace korvane
