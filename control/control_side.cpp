#include "control/control_side.h"

namespace korvane {

ControlSide::ControlSide(Desk& desk, ListenerSide& listener)
    : x10Control(desk.system.makeWinsock()),
      mapsTab(desk.parts),
      moreTab(desk.parts, desk.system, desk.palette, *x10Control) {
  desk.tabs.setTab(kMapsTab, mapsTab);
  desk.tabs.setTab(kMoreTab, moreTab);
  desk.addTabWord(kMapsTab, u"MAPS"_s, u"btnmaps"_s, u"open the Maps tab"_s);
  desk.addTabWord(kMoreTab, u"MORE"_s, u"btnmore"_s, u"open the More tab"_s);
  desk.steps.at(Step::CloseLightsLink, [this] { x10Control->Close(); });
  listener.closesWith(u"X10"_s, [this] { x10Control->Close(); });
}

}  // namespace korvane
