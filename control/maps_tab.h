// The Maps tab, or Radio in its place.
#pragma once

#include "core/tab.h"
#include "core/tab_parts.h"

namespace korvane {

class MapsTab : public Tab {
 public:
  explicit MapsTab(TabParts& parts);
  void leave() override;
  void enter() override;

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Surface* MappointControl = bind("MappointControl");
    std::array<Image*, 8> cmdControls = bind("cmdControls");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  };

  TabParts& parts_;
  Panel panel_;
  ControlSet map_, radio_, note_;
};

}  // namespace korvane
