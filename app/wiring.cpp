// Which control's event goes to which handler.
#include "app/console.h"
#include "app/screens.h"

namespace korvane {

void Console::wire() {
  wireMusic();
  wireWindow();
}

void Console::wireMusic() {
  Form& form = frmMain;
  const auto onIndex = [&form](QStringView name, Event::Type type, auto handler) {
    form.on(name, type, [handler](Control& control, const Event&) { handler(control.index); });
  };
  onIndex(u"cmdTop", Event::Click, [this](int i) { browsing.cmdTop_Click(i); });
  onIndex(u"cmdControls", Event::Click, [this](int i) { transport.cmdControls_Click(i); });
  onIndex(u"cmdOneSong", Event::Press, [this](int i) { browsing.cmdOneSong_Press(i); });
  onIndex(u"cmdOneSong", Event::Release, [this](int) { browsing.cmdOneSong_Release(); });
  onIndex(u"VscrollAllSongs", Event::Change, [this](int) { browsing.VscrollAllSongs_Change(); });
  onIndex(u"VscrollAllSongs", Event::Scroll, [this](int) { browsing.VscrollAllSongs_Scroll(); });
  onIndex(u"VscrollAllSongs", Event::Release, [this](int) { browsing.VscrollAllSongs_Release(); });
  onIndex(u"Slider1", Event::Press, [this](int) { transport.Slider1_Press(); });
  onIndex(u"Slider1", Event::Scroll, [this](int) { transport.Slider1_Scroll(); });
  onIndex(u"Slider1", Event::Release, [this](int) { transport.Slider1_Release(); });
  onIndex(u"lblCurrentPlay", Event::DblClick, [this](int) { transport.lblCurrentPlay_DblClick(); });
  onIndex(u"lblMusicType", Event::Click, [this](int i) { cd.lblMusicType_Click(i); });
  onIndex(u"MusicTimer", Event::Tick, [this](int) { cd.MusicTimer_Timer(); });
  onIndex(u"RepeatTimer", Event::Tick, [this](int) { browsing.RepeatTimer_Tick(); });
  onIndex(u"KeyboardTimer", Event::Tick, [this](int) { browsing.KeyboardTimer_Tick(); });

  form.on(u"Grid", Event::Click, [this](Control& grid, const Event& event) {
    browsing.Grid_Click(grid.index, event.column, event.row);
  });
  form.on(u"Grid", Event::DblClick, [this](Control& grid, const Event& event) {
    browsing.Grid_DblClick(grid.index, event.column, event.row);
  });
  form.on(u"Grid", Event::ButtonClicked, [this](Control& grid, const Event& event) {
    browsing.Grid_ButtonClicked(grid.index, event.column, event.row);
  });
  form.on(Event::KeyDown,
          [this](Control&, const Event& event) { browsing.Form_KeyDown(event.key); });
  form.on(Event::KeyPress,
          [this](Control&, const Event& event) { browsing.Form_KeyPress(event.text); });
}

void Console::wireWindow() {
  const auto press = [this](QStringView name, std::function<void(int)> handler) {
    frmMain.on(name, Event::Click, [handler = std::move(handler)](Control& control, const Event&) {
      handler(control.index);
    });
  };
  press(u"imgTabs", [this](int i) {
    if (!state.loadingForm) tabs.imgTabs_Click(i);
  });
  press(u"lblMoviesPlay", [this](int i) { moviesTab.lblMoviesPlay_Click(i); });
  press(u"cmdSetup", [this](int) { screens->cmdSetup_Click(); });
  press(u"imgExit", [this](int) { window.imgExit_Click(); });
  press(u"cmdMinimize", [this](int) { window.cmdMinimize_Click(); });
}

}  // namespace korvane
