// mnuPrint: prints pictures, each as a document of its own.
#pragma once

#include "core/log.h"
#include "core/screen.h"
#include "photos/cls_picture.h"
#include "photos/print/cls_print_api.h"

namespace korvane {

class PicturePrinter {
 public:
  struct Uses {
    DialogUses dialog;
    Printing& printing;
    const Imaging& imaging;
    const clsPicture& picture;
    Settings& settings;
    Screen& screen;
    Pump& pump;
    Log& log;
  };
  explicit PicturePrinter(Uses uses);  // all of them outlive its pending work

  // Shows the dialog for the first of `paths`, then prints them all: `optSize` 0 for 4 x 6 inches,
  // else 5 x 7; `optPrint` 0 crops to fit, 1 stretches, else the picture keeps its shape. `bar`
  // shows while it prints. The run ends early behind the page at hand, when `stopped` says so or
  // the bar's form has gone. A picture that fails is left out; what failed is said at the end and
  // stands in the log. Does nothing while a run is under way. Yields.
  void mnuPrint_Click(std::vector<QString> paths, int optSize, int optPrint, Progress& bar,
                      const std::function<bool()>& stopped);

 private:
  struct Failures;

  void printAll(const std::vector<QString>& paths, PrintSize size, PrintFit fit, Progress& bar,
                const std::function<bool()>& stopped, Failures& failures);
  QString print(const QString& path, PrintSize size, PrintFit fit);

  Uses uses_;
  clsPrintApi api_;
  bool running_ = false;
};

}  // namespace korvane
