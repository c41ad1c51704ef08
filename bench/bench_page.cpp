// korvane-bench page GRID HOME: what a press on a tab costs, handler and paint, and a drag through
// the list Grid(GRID) of the console at HOME, frame by frame. Draws without a display where there
// is none.
#include "bench/bench.h"
#include "bench/bench_console.h"
#include "bench/bench_library.h"
#include "tests/fakes/fake_winsock.h"

namespace korvane {
namespace {

constexpr int kFrames = 200;

double milliseconds(const std::function<void()>& work) {
  return 1000 * fastest(1, work);
}

}  // namespace

int benchPage(const QStringList& arguments) {
  if (arguments.size() != 2) return 2;
  const int grid = arguments[0].toInt();
  BenchConsole bench(arguments[1], [] { return std::make_unique<FakeWinsock>(); });
  Console& console = bench.console;
  StillPump& pump = bench.pump;
  WindowHost* window = bench.window;
  if (!console.SubMain()) return 1;
  // A page that has something to say is answered at once, and its press not counted.
  bool said = false;
  window->modalOpened = [&](Form& box) {
    said = true;
    pump.later([&] { console.desk.host.hide(box); });
  };
  const auto paint = [window] { window->stage().repaint(); };

  pump.wait(600, {});  // what is drawn ahead at rest
  pump.still = true;
  Json json("page");
  double handlerMs = 0, firstMs = 0, paintMs = 0;
  for (int visit = 0; visit < 2; ++visit) {
    for (int tab = 0; tab < 6; ++tab) {
      said = false;
      const double took = milliseconds([&] { console.desk.tabs.imgTabs_Click(tab); });
      if (!said) handlerMs = std::max(handlerMs, took);
      double& most = visit == 0 ? firstMs : paintMs;
      most = std::max(most, milliseconds(paint));
    }
  }
  json.add("tab_handler_ms", handlerMs).add("tab_first_paint_ms", firstMs);
  json.add("tab_paint_ms", paintMs);

  console.desk.tabs.imgTabs_Click(kMusicTab);
  console.library.browsing.showGrid(static_cast<MusicList>(grid));
  auto& list = dynamic_cast<Grid&>(*console.desk.frmMain.find(u"Grid", grid));
  auto& slider = dynamic_cast<Slider&>(*console.desk.frmMain.find(u"VscrollAllSongs"));
  json.add("rows", list.maxRows()).add("first_screen_ms", milliseconds(paint));
  double longest = 0, sum = 0;
  for (int frame = 1; frame <= kFrames; ++frame) {
    const double took = milliseconds([&] {
      slider.value = 1 + static_cast<int>(qint64{list.maxRows() - 1} * frame / kFrames);
      console.desk.paging.VscrollAllSongs_Scroll();
      console.desk.paging.VscrollAllSongs_Change();
      paint();
    });
    longest = std::max(longest, took);
    sum += took;
  }
  json.add("drag_frame_ms", sum / kFrames).add("drag_longest_ms", longest);
  json.add("peak_mib", measure([] {}).peakMib);
  json.print();
  return list.row() > 1 ? 0 : 1;
}

}  // namespace korvane
