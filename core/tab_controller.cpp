#include "core/tab_controller.h"

#include "core/log.h"

namespace korvane {

TabController::TabController(Uses uses) : uses_(uses), panel_(uses.form) {}

void TabController::imgTabs_Click(int index) {
  if (panel_.frameButtons->visible()) {
    uses_.messages.say(u"You need to finish the custom buttons before proceeding to other tabs."_s);
    return;
  }
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);

  AppState& state = uses_.state;
  if (index != state.currentTab) {
    panel_.imgTabs[static_cast<size_t>(state.currentTab)]->tag = QString();
    if (state.gAlwaysOnTopShown) closeAlwaysOnTop();
    uses_.log.guard("imgTabs_Click", "Form frmMain", [&] { openTab().leave(); });
  }
  panel_.imgTabs[static_cast<size_t>(index)]->tag = u"1"_s;
  uses_.log.guard("imgTabs_Click", "Form frmMain",
                  [&] { tabs_[static_cast<size_t>(index)]->enter(); });
  state.currentTab = index;
  for (const auto& hear : entered) hear();
}

}  // namespace korvane
