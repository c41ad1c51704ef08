// imgTabs_Click: leaves the open tab and enters the pressed one.
#pragma once

#include "core/form/panel.h"
#include "core/main_form.h"
#include "core/prompt.h"
#include "core/screen.h"
#include "core/tab.h"

namespace korvane {

class Log;

class TabController {
 public:
  struct Uses {
    Form& form;
    AppState& state;
    Screen& screen;
    Messages& messages;
    const Log& log;
  };
  explicit TabController(Uses uses);

  void setTab(int index, Tab& tab) { tabs_[static_cast<size_t>(index)] = &tab; }

  // Refused while another press is at work, and with a message while custom buttons are edited. A
  // press on the open tab enters it again. A failure inside one tab's actions is logged and ends
  // only those.
  void imgTabs_Click(int index);

  bool open(int index) const { return panel_.imgTabs[static_cast<size_t>(index)]->tagged(); }
  Tab& openTab() const { return *tabs_[static_cast<size_t>(uses_.state.currentTab)]; }

  // Called when a tab has been entered, also the open one again.
  std::vector<std::function<void()>> entered;
  // Closes the always-on-top strip; set by the console.
  std::function<void()> closeAlwaysOnTop = [] {};

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Image*, 6> imgTabs = bind("imgTabs");
    Frame* frameButtons = bind("frameButtons");
  };

  Uses uses_;
  Panel panel_;
  std::array<Tab*, 6> tabs_{};
};

}  // namespace korvane
