#include "core/tab_controller.h"

#include "core/form/binder.h"
#include "core/log.h"

namespace korvane {

TabController::TabController(Uses uses) : uses_(uses) {
  Binder bind(uses.form, "tab controller");
  bind(imgTabs_, "imgTabs");
  bind(frameButtons_, "frameButtons");
}

void TabController::imgTabs_Click(int index) {
  if (frameButtons_->visible()) {
    uses_.messages.say(u"You need to finish the custom buttons before proceeding to other tabs."_s);
    return;
  }
  if (uses_.screen.busy()) return;
  const Busy busy(uses_.screen, Screen::Custom);

  AppState& state = uses_.state;
  if (index != state.currentTab) {
    imgTabs_[static_cast<size_t>(state.currentTab)]->tag = QString();
    if (state.gAlwaysOnTopShown) closeAlwaysOnTop();
    uses_.log.guard("imgTabs_Click", "Form frmMain", [&] { openTab().leave(); });
  }
  imgTabs_[static_cast<size_t>(index)]->tag = u"1"_s;
  uses_.log.guard("imgTabs_Click", "Form frmMain",
                  [&] { tabs_[static_cast<size_t>(index)]->enter(); });
  state.currentTab = index;
}

}  // namespace korvane
