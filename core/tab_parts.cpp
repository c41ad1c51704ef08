#include "core/tab_parts.h"

namespace korvane {

TabParts::TabParts(MainForm& mainForm, Paging& listPaging, AppState& sharedState,
                   Settings& storedSettings)
    : main(mainForm),
      paging(listPaging),
      state(sharedState),
      settings(storedSettings),
      form(mainForm.form()),
      controls(form, {"cmdControls"}),
      top(form, {"cmdTop"}),
      volume(form, {"ScrollVolumeUp", "ScrollVolumeDN", "lblVolume", "scrollVolume"}),
      mute(form, {"mute"}),
      status(form, {"lblCurrentPlay", "Slider1", "TxtTime", "lblDuration"}),
      windowButtons(form, {"cmdSetup", "imgExit", "cmdMinimize"}),
      panel_(form) {}

void TabParts::tabPicture(TabIndex tab, const QString& group, const QString& name) const {
  panel_.imgTabs[tab]->setPicture(group, name);
}

void TabParts::showSound() const {
  volume.show(state.gDisplayVolume);
  mute.show(state.gShowMute);
}

void TabParts::hidePlaying() const {
  volume.hide();
  mute.hide();
  status.hide();
  panel_.lblCurrentPlayList->visible = false;
  top.hide();
  main.HideAllGrids();
  paging.hide();
}

void TabParts::showWindowButtons() const {
  panel_.cmdSetup->visible = state.gShowSetup;
  panel_.imgExit->visible = state.gShowExit;
  panel_.cmdMinimize->visible = state.gShowMin;
}

}  // namespace korvane
