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
  MapsTab(TabParts& parts, Tab& music);
  void leave() override;
  void enter() override;
  void pressTransport(int index) override { music_.pressTransport(index); }

 private:
  TabParts& parts_;
  Tab& music_;
  ControlSet map_, radio_;
};

class MoreTab : public Tab {
 public:
  // `x10Link` leads to the lights; it is made when the tab opens.
  MoreTab(TabParts& parts, const Palette& palette, RecordLink& x10Link, Tab& music);
  void leave() override;
  void enter() override;
  void pressTransport(int index) override { music_.pressTransport(index); }

 private:
  void openLights();
  void connectLights();

  TabParts& parts_;
  const Palette& palette_;
  RecordLink& x10Link_;
  Tab& music_;
  ControlSet lights_, links_;
};

}  // namespace korvane
