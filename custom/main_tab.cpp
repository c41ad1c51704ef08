#include "custom/main_tab.h"

namespace korvane {

MainTab::MainTab(TabParts& parts, TabController& tabs, Tab& music)
    : parts_(parts),
      tabs_(tabs),
      music_(music),
      web_(parts.form, {"wb"}),
      camera_(parts.form, {"Icamera", "pCamera"}) {}

void MainTab::leave() {
  if (parts_.state.gControlButtonsMain) parts_.windowButtons.hide();
  parts_.tabPicture(kMainTab, u"main"_s, u"main"_s);
  camera_.hide();
  parts_.top.show();
  web_.hide();
  ControlSet(parts_.form, {"cmdbutton"}).hide();
  parts_.controls.show();
  parts_.status.show();
  parts_.form.find(u"lblCurrentPlayList")->visible = true;
}

void MainTab::enter() {
  parts_.main.setBackground(u"main"_s);
  if (parts_.state.gCamera) parts_.form.find(u"pCamera")->visible = true;
  if (parts_.state.gControlButtonsMain) parts_.showWindowButtons();
  parts_.tabPicture(kMainTab, u"main"_s, u"mainb"_s);
  parts_.hidePlaying();
  parts_.controls.hide();
  if (parts_.state.gMainPage == "WB"_L1) web_.show();
  if (parts_.state.gMainPage == "CB"_L1) showButtons();
}

// Transport reports that arrive here concern the music.
void MainTab::pressTransport(int index) {
  music_.pressTransport(index);
}

void MainTab::showButtons() {
  for (int i = 0; i <= parts_.form.upperBound(u"cmdbutton"); ++i) {
    Control* button = parts_.form.find(u"cmdbutton", i);
    if (button && !button->caption().isEmpty()) button->visible = true;
  }
}

void MainTab::domainpage() {
  web_.hide();
  ControlSet(parts_.form, {"cmdbutton"}).hide();
  if (!tabs_.open(kMainTab)) return;
  if (parts_.state.gMainPage == "WB"_L1) web_.show();
  if (parts_.state.gMainPage == "CB"_L1) showButtons();
}

}  // namespace korvane
