// The order of start and stop: Sub Main, Form_Load and closeit. What happens at a step lives in the
// sides (core/steps.h); the order lives here.
#pragma once

#include "core/graphics.h"
#include "core/log.h"
#include "core/main_form.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/steps.h"
#include "core/tab_controller.h"
#include "platform/system.h"

namespace korvane {

class Startup {
 public:
  struct Uses {
    System& system;
    AppState& state;
    Settings& settings;
    Graphics& graphics;
    const Palette& palette;
    const Log& log;
    Screen& screen;
    MainForm& main;
    TabController& tabs;
    FormHost& host;
    Form& splash;
    const Steps& steps;
    std::function<void(bool opened)>& mixerOpened;
  };
  explicit Startup(Uses uses);

  // False when the program must end: no theme, another console runs here, or a side cannot do
  // without what it lacks (Step::Requirements). The last is said in the system's box. Yields.
  bool SubMain();
  // Repeatable: setup runs it again. Yields.
  void Form_Load();
  // Stops what plays and closes every connection. Yields.
  void closeit();

 private:
  void status(const QString& text);
  void takeMixer(bool opened);
  void run(Step step);  // a failure is logged and ends only the work that failed
  bool requirementsHold();
  bool readSettings();  // false when another console runs here
  void readNetworkSettings();
  void applyColours();
  void applyPictures();
  void chooseMovieType();
  void chooseMusicRole();
  void removeTabs();

  struct SplashPanel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblStatus = bind("lblStatus");
    Label* lblVersion = bind("lblVersion");
  };

  Uses uses_;
  SplashPanel splash_;
  bool mixerMissing_ = false;
};

std::span<const InventoryRow> splashInventory();  // frmSplash

}  // namespace korvane
