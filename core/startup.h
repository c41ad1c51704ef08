// The order of start and stop: Sub Main, Form_Load and closeit. What happens at a step lives in the
// sides (core/steps.h); the order lives here.
#pragma once

#include "core/add_timer.h"
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
    AddTimer& addTimer;
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
  void clearStatus();
  void showByFlags();
  void showCamera();
  void chooseMovieType();
  void chooseMusicRole();
  void removeTabs();

  struct SplashPanel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblStatus = bind("lblStatus");
    Label* lblVersion = bind("lblVersion");
  };

  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Image*, 6> imgTabs = bind("imgTabs");
    Image* cmdSetup = bind("cmdSetup");
    Image* cmdMinimize = bind("cmdMinimize");
    Image* imgExit = bind("imgExit");
    Image* pCamera = bind("pCamera");
    Grid* artists = bind("Grid", 0);
    Grid* artistAlbums = bind("Grid", 2);
    std::array<Label*, 2> lblConnectStat = bind("lblConnectStat");
    Label* lblDuration = bind("lblDuration");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
    Image* previous = bind("cmdControls", 0);
    Image* next = bind("cmdControls", 4);
    std::array<Image*, 3> lblMovieType = bind("lblMovieType");
    std::array<Image*, 2> lblMusicPlay = bind("lblMusicPlay");
    std::array<Image*, 2> lblMusicType = bind("lblMusicType");
  };

  Uses uses_;
  SplashPanel splash_;
  bool mixerMissing_ = false;
  Panel panel_;
};

std::span<const InventoryRow> splashInventory();  // frmSplash

}  // namespace korvane
