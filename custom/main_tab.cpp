#include "custom/main_tab.h"

namespace korvane {

MainTab::MainTab(TabParts& parts, TabController& tabs, CustomButtons& buttons, HomePanel& home)
    : parts_(parts),
      panel_(parts.form),
      tabs_(tabs),
      buttons_(buttons),
      home_(home),
      web_(parts.form, {"wb"}),
      camera_(parts.form, {"Icamera", "pCamera"}) {}

void MainTab::leave() {
  if (parts_.state.gControlButtonsMain) parts_.windowButtons.hide();
  parts_.tabPicture(kMainTab, u"main"_s, u"main"_s);
  camera_.hide();
  parts_.top.show();
  web_.hide();
  buttons_.hide();
  home_.hide();
  parts_.controls.show();
  parts_.status.show();
  panel_.lblCurrentPlayList->visible = true;
}

void MainTab::enter() {
  parts_.main.setBackground(u"main"_s);
  if (parts_.state.gCamera) panel_.pCamera->visible = true;
  if (parts_.state.gControlButtonsMain) parts_.showWindowButtons();
  parts_.tabPicture(kMainTab, u"main"_s, u"mainb"_s);
  parts_.hidePlaying();
  parts_.controls.hide();
  parts_.main.showPlayState(parts_.state.gPlayMode);  // another tab has shown its own player's
  showContent();
}

void MainTab::showContent() {
  if (parts_.state.gMainPage == "WB"_L1) web_.show();
  if (parts_.state.gMainPage != "CB"_L1) return;
  buttons_.show();
  home_.show();
}

void MainTab::domainpage() {
  web_.hide();
  buttons_.hide();
  home_.hide();
  if (parts_.state.gMainPage == "CB"_L1) buttons_.loadCustomButtons();
  if (tabs_.open(kMainTab)) showContent();
}

}  // namespace korvane
