// The cabin around the seat: the Maps tab (or Radio) and the More tab with its lights.
#pragma once

#include "control/control_tabs.h"
#include "listener/listener_side.h"

namespace korvane {

class ControlSide {
 public:
  ControlSide(Desk& desk, ListenerSide& listener);

  std::unique_ptr<Winsock> x10Control;
  RecordLink x10Link;  // to the lights
  MapsTab mapsTab;
  MoreTab moreTab;
};

}  // namespace korvane
