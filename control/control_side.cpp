#include "control/control_side.h"

namespace korvane {

ControlSide::ControlSide(Desk& desk, ListenerSide& listener)
    : x10Control(desk.system.makeWinsock()),
      x10Link({*x10Control, desk.system.pump, desk.settings, desk.log, desk.state.gX10IP,
               desk.state.gX10Port, "x10Connect"}),
      mapsTab(desk.parts),
      moreTab(desk.parts, desk.palette, x10Link) {
  desk.tabs.setTab(kMapsTab, mapsTab);
  desk.tabs.setTab(kMoreTab, moreTab);
  desk.addTabWord(kMapsTab, u"MAPS"_s, u"btnmaps"_s, u"open the Maps tab"_s);
  desk.addTabWord(kMoreTab, u"MORE"_s, u"btnmore"_s, u"open the More tab"_s);
  desk.steps.at(Step::CloseLightsLink, [this] { x10Link.close(); });
  listener.closesWith(u"X10"_s, [this] { x10Link.close(); });
}

}  // namespace korvane
