// The Main tab: a web page or the owner's buttons.
#pragma once

#include "core/tab.h"
#include "core/tab_controller.h"
#include "core/tab_parts.h"

namespace korvane {

class MainTab : public Tab {
 public:
  MainTab(TabParts& parts, TabController& tabs, Tab& music);

  void leave() override;
  void enter() override;
  void pressTransport(int index) override;

  // The content of the tab by gMainPage: "WB" the web page, "CB" the owner's buttons.
  void domainpage();

 private:
  void showButtons();

  TabParts& parts_;
  TabController& tabs_;
  Tab& music_;
  ControlSet web_, camera_;
};

}  // namespace korvane
