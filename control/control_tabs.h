// The Maps tab (or Radio, in its place) and the More tab with its lights.
#pragma once

#include "core/palette.h"
#include "core/tab.h"
#include "core/tab_controller.h"
#include "core/tab_parts.h"
#include "listener/record_link.h"

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

class MoreTab : public Tab {
 public:
  // `x10Link` leads to the lights; it is made when the tab opens.
  MoreTab(TabParts& parts, const Palette& palette, RecordLink& x10Link);
  void leave() override;
  void enter() override;

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Grid* ssX10 = bind("ssX10");
    Label* lblX10 = bind("lblX10");
    std::array<Button*, 4> cmdX10 = bind("cmdX10");
    Frame* framex10 = bind("framex10");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  };

  void openLights();
  void connectLights();

  TabParts& parts_;
  Panel panel_;
  const Palette& palette_;
  RecordLink& x10Link_;
  ControlSet lights_, links_, note_;
};

}  // namespace korvane
