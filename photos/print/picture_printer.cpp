#include "photos/print/picture_printer.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <thread>

namespace korvane {
namespace {

constexpr std::chrono::milliseconds kLook{5};  // at a page on its thread

PrintFit fitOf(int optPrint) {
  if (optPrint == 0) return PrintFit::Crop;
  return optPrint == 1 ? PrintFit::Size : PrintFit::KeepAspect;
}

// One page, on a thread: all that it touches but the two doors is its own.
struct Page {
  QString path;
  Imaging::Reading reading;  // without the size of its box
  PrintSize size;
  PrintFit fit;
  clsPrintApi::Choice choice;
  QString error = u"There is no memory for it."_s;  // empty when it was printed
  bool ended = false;

  PrintPage layout(int width, int height) const {
    return layOut(width, height, size, fit, choice.turn, choice.paper);
  }
  QString printed(const Imaging& imaging, Printing& printing);
};

// What the file says of itself tells the way of the box that it is read for; what was read counts.
QString Page::printed(const Imaging& imaging, Printing& printing) {
  const Imaging::About about = imaging.about(path, reading.upright);
  const PrintPixels box = printPixels(layout(about.width, about.height).box);
  reading.width = box.width;
  reading.height = box.height;
  reading.cover = fit != PrintFit::KeepAspect;
  const Imaging::Loaded loaded = imaging.load(path, reading);
  if (!loaded.pixels) return loaded.error;
  const PrintPage page = layout(loaded.pixels->width, loaded.pixels->height);
  const Printing::Job job{choice.printer, choice.paper.id, choice.copies, page.sideways,
                          QFileInfo(path).completeBaseName()};
  QString failure;
  if (printing.print(job, placedOn(page, loaded.pixels), &failure)) return {};
  return failure.isEmpty() ? u"The printer refuses it."_s : failure;
}

}  // namespace

struct PicturePrinter::Failures {
  QStringList names;
  QString why;  // of the first

  QString sentence() const {
    constexpr qsizetype kMostNames = 5;
    QString said = names.first(std::min(names.size(), kMostNames)).join(u", "_s);
    if (names.size() > kMostNames) said += u" and %1 more"_s.arg(names.size() - kMostNames);
    return u"Not printed: %1. %2"_s.arg(said, why);
  }
};

PicturePrinter::PicturePrinter(Uses uses)
    : uses_(uses), api_({uses.dialog, uses.printing, uses.imaging, uses.settings, uses.pump}) {}

void PicturePrinter::mnuPrint_Click(std::vector<QString> paths, int optSize, int optPrint,
                                    Progress& bar, const std::function<bool()>& stopped) {
  if (running_) return;
  running_ = true;
  const auto ended = qScopeGuard([this] { running_ = false; });
  if (paths.empty()) {
    uses_.dialog.messages.say(u"Choose the pictures that are to be printed first."_s);
    return;
  }
  const PrintSize size = optSize == 0 ? PrintSize::FourBySix : PrintSize::FiveBySeven;
  const PrintFit fit = fitOf(optPrint);
  if (!api_.ShowPrinter({paths.front(), uses_.picture.readingFor(0, 0).upright, size, fit})) return;
  Failures failures;
  printAll(paths, size, fit, bar, stopped, failures);
  if (!failures.names.isEmpty()) uses_.dialog.messages.say(failures.sentence());
}

void PicturePrinter::printAll(const std::vector<QString>& paths, PrintSize size, PrintFit fit,
                              Progress& bar, const std::function<bool()>& stopped,
                              Failures& failures) {
  const Busy busy(uses_.screen);
  bar.value = 0;
  bar.visible = true;
  const auto hidden = qScopeGuard([&bar] { bar.visible = false; });
  for (size_t i = 0; i < paths.size(); ++i) {
    const QString name = QFileInfo(paths[i]).fileName();
    bar.caption = u"Printing.... "_s + name;
    bar.value = 100.0 * static_cast<double>(i) / static_cast<double>(paths.size());
    const QString error = print(paths[i], size, fit);
    if (!error.isEmpty()) {
      uses_.log.logIt(u"Error printing '%1'\n%2"_s.arg(paths[i], error));
      if (failures.names.isEmpty()) failures.why = error;
      failures.names << name;
    }
    uses_.pump.doEvents();
    if (stopped() || !bar.form.shown()) return;
  }
}

// Empty when it was printed, else why not. Presses are alive meanwhile. Yields.
QString PicturePrinter::print(const QString& path, PrintSize size, PrintFit fit) {
  const auto page =
      std::make_shared<Page>(Page{path, uses_.picture.readingFor(0, 0), size, fit, api_.choice()});
  uses_.pump.inBackground(
      [page, &imaging = uses_.imaging, &printing = uses_.printing] {
        page->error = page->printed(imaging, printing);
      },
      [page] { page->ended = true; });
  while (!page->ended) {
    uses_.pump.doEvents();
    if (!page->ended) std::this_thread::sleep_for(kLook);
  }
  return page->error;
}

}  // namespace korvane
