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
      windowButtons(form, {"cmdSetup", "imgExit", "cmdMinimize"}) {}

void TabParts::tabPicture(int tab, const QString& group, const QString& name) const {
  form.find(u"imgTabs", tab)->setPicture(group, name);
}

void TabParts::showSound() const {
  volume.show(state.gDisplayVolume);
  mute.show(state.gShowMute);
}

void TabParts::hidePlaying() const {
  volume.hide();
  mute.hide();
  status.hide();
  form.find(u"lblCurrentPlayList")->visible = false;
  top.hide();
  main.HideAllGrids();
  paging.hide();
}

void TabParts::showWindowButtons() const {
  form.find(u"cmdSetup")->visible = state.gShowSetup;
  form.find(u"imgExit")->visible = state.gShowExit;
  form.find(u"cmdMinimize")->visible = state.gShowMin;
}

}  // namespace korvane
