#include "core/window_buttons.h"

namespace korvane {
namespace {

constexpr Rect kStrip{0, 0, 92, 80};
constexpr InventoryRow kStripRows[] = {
    {"imgRestore",
     -1,
     Kind::Image,
     {0, 0, 92, 80},
     Left | Top,
     "Back to Korvane",
     "",
     true,
     {.picture = "root/logo"}},
};

enum ExitFlags { kShutDown = 1, kRestart = 2, kForce = 4, kPowerOff = 8 };

}  // namespace

std::span<const InventoryRow> stripInventory() {
  return kStripRows;
}

WindowButtons::WindowButtons(Uses uses, std::function<void()> end)
    : uses_(uses),
      end_(std::move(end)),
      strip_(u"frmAlwaysOnTop"_s, kStripRows, kStrip, FormRole::Strip) {
  for (const Event::Type type : {Event::Click, Event::DblClick})
    strip_.on(u"imgRestore", type, [this](Control&, const Event&) { closeAlwaysOnTop(); });
}

void WindowButtons::showAlwaysOnTop() {
  uses_.state.gAlwaysOnTopShown = true;
  uses_.form.minimised = true;
  uses_.host.show(strip_);
}

void WindowButtons::closeAlwaysOnTop() {
  if (!uses_.state.gAlwaysOnTopShown) return;
  uses_.state.gAlwaysOnTopShown = false;
  uses_.host.hide(strip_);
  uses_.form.minimised = false;
}

void WindowButtons::cmdMinimize_Click() {
  closeAlwaysOnTop();
  const bool tray =
      uses_.state.gShowInTheTaskBar != "YES"_L1 && uses_.tray.add(u"Korvane"_s, [this] {
        uses_.tray.remove();
        uses_.host.show(uses_.form);
      });
  if (tray)
    uses_.host.hide(uses_.form);
  else
    uses_.form.minimised = true;
}

bool WindowButtons::allowed() const {
  return std::ranges::all_of(mayEnd, [](const auto& asks) { return asks(); });
}

void WindowButtons::imgExit_Click() {
  closeAlwaysOnTop();
  if (allowed() && uses_.messages.confirm(u" Are you Sure you want to shut down? "_s))
    Form_Unload();
}

void WindowButtons::Form_Unload() {
  uses_.startup.closeit();
  uses_.host.fadeOut(uses_.form, 1000);
  end_();
}

void WindowButtons::restartWindows(bool force) {
  uses_.session.exitWindows(force ? kForce | kRestart : kRestart);
}

void WindowButtons::shutdownWindows(bool force) {
  constexpr int flags = kShutDown | kPowerOff;
  uses_.session.exitWindows(force ? kForce | flags : flags);
}

void WindowButtons::askShutdown(bool restart) {
  if (!allowed() || !uses_.messages.confirm(u"Do you want to shut down?"_s)) return;
  uses_.startup.closeit();
  if (restart)
    restartWindows(true);
  else
    shutdownWindows(false);
}

}  // namespace korvane
