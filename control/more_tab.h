// The More tab: the lights, or what is not set up.
#pragma once

#include "control/lights/lights_page.h"
#include "core/tab.h"
#include "core/tab_parts.h"

namespace korvane {

class MoreTab : public Tab {
 public:
  MoreTab(TabParts& parts, LightsPage& lights);  // both outlive it
  void leave() override;
  void enter() override;  // Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  };

  TabParts& parts_;
  LightsPage& lights_;
  Panel panel_;
  ControlSet links_, note_;
};

}  // namespace korvane
