// The cabin around the seat: the Maps tab (or Radio) and the More tab with its lights.
#pragma once

#include "control/maps_tab.h"
#include "control/more_tab.h"
#include "control/screens/x10_setup_form.h"
#include "listener/listener_side.h"

namespace korvane {

class ControlSide {
 public:
  ControlSide(Desk& desk, ListenerSide& listener);

  std::unique_ptr<Winsock> x10Control;
  Lamps lamps;
  LightsPage lights;
  X10SetupForm x10Setup;
  MapsTab mapsTab;
  MoreTab moreTab;

 private:
  void connectLights(Desk& desk);
};

}  // namespace korvane
