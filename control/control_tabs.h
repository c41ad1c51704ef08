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
  TabParts& parts_;
  ControlSet map_, radio_;
};

class MoreTab : public Tab {
 public:
  // `x10Link` leads to the lights; it is made when the tab opens.
  MoreTab(TabParts& parts, const Palette& palette, RecordLink& x10Link);
  void leave() override;
  void enter() override;

 private:
  void openLights();
  void connectLights();

  TabParts& parts_;
  const Palette& palette_;
  RecordLink& x10Link_;
  ControlSet lights_, links_;
};

}  // namespace korvane
