#include "control/more_tab.h"

namespace korvane {

MoreTab::MoreTab(TabParts& parts, LightsPage& lights)
    : parts_(parts),
      lights_(lights),
      panel_(parts.form),
      links_(parts.form, {"lblConnectStat"}),
      note_(parts.form, {"lblNote#1"}) {}

void MoreTab::leave() {
  parts_.tabPicture(kMoreTab, u"more"_s, u"more"_s);
  lights_.close();
  note_.hide();
  parts_.top.show();
  parts_.controls.show();
  links_.hide();
  panel_.lblCurrentPlayList->visible = true;
}

void MoreTab::enter() {
  parts_.main.setBackground(u"more"_s);
  parts_.tabPicture(kMoreTab, u"more"_s, u"moreb"_s);
  parts_.hidePlaying();
  parts_.controls.hide();
  if (parts_.state.gPremise) parts_.state.gX10 = u"NO"_s;
  const bool lights = parts_.state.gX10 == "YES"_L1;
  note_.show(!lights);
  if (lights)
    lights_.open();
  else
    lights_.close();
}

}  // namespace korvane
