// Minimising, the small always-on-top strip, leaving, and the machine's shutdown.
#pragma once

#include "core/form/form.h"
#include "core/prompt.h"
#include "core/startup.h"
#include "platform/machine.h"

namespace korvane {

class WindowButtons {
 public:
  struct Uses {
    Form& form;
    AppState& state;
    FormHost& host;
    Messages& messages;
    Startup& startup;
    Tray& tray;
    Session& session;
  };
  // `end` ends the program.
  WindowButtons(Uses uses, std::function<void()> end);

  void cmdMinimize_Click();
  void imgExit_Click();  // Yields.
  void Form_Unload();    // Yields.

  void showAlwaysOnTop();
  void closeAlwaysOnTop();
  Form& strip() { return strip_; }

  // The actions "RESTART" and "SHUTDOWN" of a custom button. Yields.
  void restartWindows(bool force);
  void shutdownWindows(bool force);
  void askShutdown(bool restart);

  // Asked before the question whether to end: each asks about work of its own that is lost then. A
  // false keeps the console as it is. They may yield.
  std::vector<std::function<bool()>> mayEnd;

 private:
  bool allowed() const;

  Uses uses_;
  std::function<void()> end_;
  Form strip_;  // frmAlwaysOnTop
};

std::span<const InventoryRow> stripInventory();  // frmAlwaysOnTop

}  // namespace korvane
