// The order of start and stop: Sub Main, Form_Load and closeit. What the steps do lives in the
// units; the order lives here.
#pragma once

#include "core/graphics.h"
#include "core/log.h"
#include "core/main_form.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/tab_controller.h"
#include "platform/system.h"

namespace korvane {

// What start and stop ask of the units above.
class StartupParts {
 public:
  virtual ~StartupParts() = default;
  virtual void showMainForm() = 0;  // shows frmMain, empty so far
  virtual void initialiseMap() = 0;
  virtual void connectMasterListener() = 0;  // Yields.
  virtual void fillArtists() = 0;
  virtual void fillAlbums() = 0;
  virtual void fillSongs() = 0;
  virtual void setUpGrids() = 0;  // columns and look of every list
  virtual void loadMovedControls() = 0;
  virtual void domainpage() = 0;
  virtual void lblMoviesPlay_Click(int index) = 0;
  virtual void loadAds() = 0;
  virtual void stopCd() = 0;
  virtual void closeMap() = 0;
  virtual void closeConnections() = 0;  // movie, x10, master, music, in that order
  virtual void releasePhotos() = 0;
};

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
    StartupParts& parts;
  };
  explicit Startup(Uses uses);

  // False when the program must end: no theme, or another console runs here. Yields.
  bool SubMain();
  // Repeatable: setup runs it again. Yields.
  void Form_Load();
  // Stops what plays and closes every connection. Yields.
  void closeit();

 private:
  void status(const QString& text);
  bool readSettings();  // false when another console runs here
  void readNetworkSettings();
  void takeMixer(bool opened);
  void applyColours();
  void applyPictures();
  void chooseMovieType();
  void chooseMusicRole();
  void removeTabs();

  Uses uses_;
};

std::span<const InventoryRow> splashInventory();  // frmSplash

}  // namespace korvane
