// The Maps tab (or Radio, in its place) and the More tab with its lights.
#pragma once

#include "core/palette.h"
#include "core/tab.h"
#include "core/tab_controller.h"
#include "core/tab_parts.h"
#include "platform/system.h"

namespace korvane {

class MapsTab : public Tab {
 public:
  MapsTab(TabParts& parts, Tab& music);
  void leave() override;
  void enter() override;
  void pressTransport(int index) override { music_.pressTransport(index); }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Surface* MappointControl = bind("MappointControl");
    std::array<Image*, 8> cmdControls = bind("cmdControls");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  };

  TabParts& parts_;
  Panel panel_;
  Tab& music_;
  ControlSet map_, radio_, note_;
};

class MoreTab : public Tab {
 public:
  MoreTab(TabParts& parts, System& system, const Palette& palette, Winsock& x10Control, Tab& music);
  void leave() override;
  void enter() override;
  void pressTransport(int index) override { music_.pressTransport(index); }

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
  System& system_;
  const Palette& palette_;
  Winsock& x10Control_;
  Tab& music_;
  ControlSet lights_, links_, note_;
};

}  // namespace korvane
