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
  explicit MapsTab(TabParts& parts);
  void leave() override;
  void enter() override;

 private:
  TabParts& parts_;
  ControlSet map_, radio_;
};

class MoreTab : public Tab {
 public:
  MoreTab(TabParts& parts, System& system, const Palette& palette, Winsock& x10Control);
  void leave() override;
  void enter() override;

 private:
  void openLights();
  void connectLights();

  TabParts& parts_;
  System& system_;
  const Palette& palette_;
  Winsock& x10Control_;
  ControlSet lights_, links_;
};

}  // namespace korvane
