// frmViewBig: one picture of the sheet to look at closely, to turn, to brighten and to print. What
// it does to the picture stays in memory: the file is not written.
#pragma once

#include <optional>

#include "core/dialog.h"
#include "core/form/panel.h"
#include "core/log.h"
#include "core/screen.h"
#include "core/settings.h"
#include "photos/screens/print_pictures.h"
#include "platform/imaging.h"
#include "platform/pump.h"

namespace korvane {

// The factor, in percent, that lies a step above or below: a quarter more or less, kept in what
// scrollZoom goes to.
double zoomStep(double factor, bool larger);

class ViewBigForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    Screen& screen;
    const Settings& settings;
    const Imaging& imaging;
    Pump& pump;
    Log& log;
  };
  explicit ViewBigForm(Uses uses);

  // Shows the picture at `at`, from 0, of these; from it the others can be reached. Yields.
  void open(std::vector<QString> paths, int at);

  PrintPictures print;  // the picture that is shown; set before the form is shown

 private:
  using Shared = std::shared_ptr<const Pixels>;
  struct Tool {
    const char* button;
    PictureArea::Hand hand;
  };
  static const std::array<Tool, 5> kTools;

  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    PictureArea* picBig = bind("picBig");
    Label* lblMessage = bind("lblMessage");
    Label* lblName = bind("lblName");
    Label* lblSize = bind("lblSize");
    Label* tbZoomFactor = bind("tbZoomFactor");
    Slider* scrollZoom = bind("scrollZoom");
    Progress* picProgress = bind("picProgress");
    Button* butPrevious = bind("butPrevious");
    Button* butNext = bind("butNext");
    Button* optSize = bind("optSize", 0);
  };

  void connectZoom();
  void connectTools();
  void LoadFile(const QString& path);
  void go(int by);
  void show(const Imaging::Loaded& loaded);
  void setPicture(Shared pixels);
  // Runs `change` on the picture in the background, under the hourglass.
  void changePicture(std::function<Shared(const Imaging&, const Pixels&)> change);
  void inBackground(std::function<void()> work, std::function<void()> done);
  void PicSizeUpdate(int width, int height);
  double factor() const;
  void zoomTo(double factor);
  void showZoom();
  void take(PictureArea::Hand hand);
  void butPrint_Click();

  Uses uses_;
  Panel panel_;
  std::vector<QString> paths_;
  int at_ = 0;
  int width_ = 0, height_ = 0;  // pixels of the picture's file, turned as it is shown
  std::optional<Busy> busy_;
  std::shared_ptr<int> round_;  // of what is at work
};

}  // namespace korvane
