// The Main tab: a web page, or the owner's buttons and what else makes a home page.
#pragma once

#include "core/tab.h"
#include "core/tab_controller.h"
#include "core/tab_parts.h"
#include "custom/buttons/custom_buttons.h"
#include "custom/home_panel.h"

namespace korvane {

class MainTab : public Tab {
 public:
  MainTab(TabParts& parts, TabController& tabs, CustomButtons& buttons, HomePanel& home);

  void leave() override;
  void enter() override;

  // The content of the tab by gMainPage: "WB" the web page, "CB" the owner's buttons.
  void domainpage();

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Image* pCamera = bind("pCamera");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  };

  void showContent();

  TabParts& parts_;
  Panel panel_;
  TabController& tabs_;
  CustomButtons& buttons_;
  HomePanel& home_;
  ControlSet web_, camera_;
};

}  // namespace korvane
