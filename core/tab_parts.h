// What the tabs share: the shared state, the screen's helpers and the sets of controls that several
// of them show and hide.
#pragma once

#include "core/main_form.h"
#include "core/paging.h"
#include "core/settings.h"

namespace korvane {

struct TabParts {
  TabParts(MainForm& mainForm, Paging& listPaging, AppState& sharedState, Settings& storedSettings);

  MainForm& main;
  Paging& paging;
  AppState& state;
  Settings& settings;
  Form& form;

  ControlSet controls, top, volume, mute, status, windowButtons;

  void tabPicture(TabIndex tab, const QString& group, const QString& name) const;
  // Volume and mute by their flags, as the tabs with sound show them.
  void showSound() const;
  // The pages without lists or transport: volume and mute go if they were shown, all else goes.
  void hidePlaying() const;
  void showWindowButtons() const;  // each under its own flag

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Image*, 6> imgTabs = bind("imgTabs");
    Image* cmdSetup = bind("cmdSetup");
    Image* cmdMinimize = bind("cmdMinimize");
    Image* imgExit = bind("imgExit");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  };
  Panel panel_;
};

}  // namespace korvane
