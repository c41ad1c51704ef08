#include "control/control_side.h"

namespace korvane {

ControlSide::ControlSide(Desk& desk, ListenerSide& listener)
    : x10Control(desk.system.makeWinsock()),
      lamps({*x10Control, desk.system.pump, desk.settings, desk.log, desk.state}),
      lights({desk.frmMain, desk.state, desk.palette, desk.settings, desk.system.pump, desk.paging,
              desk.messages, lamps}),
      x10Setup(desk.dialogs, desk.settings, desk.state, lamps,
               [this] {
                 if (lights.isOpen()) lights.open();
               }),
      mapsTab(desk.parts),
      moreTab(desk.parts, lights) {
  desk.tabs.setTab(kMapsTab, mapsTab);
  desk.tabs.setTab(kMoreTab, moreTab);
  desk.addTabWord(kMapsTab, u"MAPS"_s, u"btnmaps"_s, u"open the Maps tab"_s);
  desk.addTabWord(kMoreTab, u"MORE"_s, u"btnmore"_s, u"open the More tab"_s);
  desk.steps.at(Step::CloseLightsLink, [this] { lamps.close(); });
  listener.closesWith(u"X10"_s, [this] { lamps.close(); });
  desk.setupDoors.add({"cmdAddDir", 4, [this] { x10Setup.open(); }});
  connectLights(desk);
}

void ControlSide::connectLights(Desk& desk) {
  Form& form = desk.frmMain;
  desk.on(u"cmdX10", Event::Press, [this](int index) { lights.cmdX10_Press(index); });
  desk.on(u"cmdX10", Event::Release, [this](int index) { lights.cmdX10_Release(index); });
  desk.on(u"cmdX10", Event::Click, [this](int index) { lights.cmdX10_Click(index); });
  form.on(u"ssX10", Event::Click,
          [this](Control&, const Event& event) { lights.ssX10_RowChange(event.row); });
  form.on(u"shtX10", Event::Press,
          [this](Control&, const Event& event) { lights.shtX10_Press(event.row); });
  desk.on(u"shtX10", Event::Release, [this](int) { lights.shtX10_Release(); });
  for (const Event::Type tap : {Event::Click, Event::DblClick})
    form.on(u"shtX10", tap,
            [this](Control&, const Event& event) { lights.shtX10_Click(event.row); });
  desk.on(u"cmdScene", Event::Press, [this](int index) { lights.cmdScene_Press(index); });
  desk.on(u"cmdScene", Event::Release, [this](int) { lights.cmdScene_Release(); });
  desk.on(u"cmdScene", Event::Click, [this](int index) { lights.cmdScene_Click(index); });
}

}  // namespace korvane
