#include "core/desk.h"

namespace korvane {

Desk::Desk(System& doors, const MakeHost& makeHost, QString home, std::function<void()> end)
    : system(doors),
      log(system.files, system.clock, home),
      settings(system.files, system.pump, state, home, &log),
      graphics(system.files, state, home),
      ownHost_(makeHost(graphics)),
      host(*ownHost_),
      palette(settings),
      frmMain(u"frmMain"_s, mainInventory()),
      frmSplash(u"frmSplash"_s, splashInventory()),
      messages(host, palette),
      dialogs{host, palette, messages},
      main(frmMain, state),
      tabs({frmMain, state, screen, messages, log}),
      parts(main, state, settings),
      startup({system, state, settings, graphics, palette, log, screen, main, tabs, host, frmSplash,
               steps}),
      window({frmMain, state, host, messages, startup, system.tray, system.session},
             std::move(end)) {
  tabs.closeAlwaysOnTop = [this] { window.closeAlwaysOnTop(); };
  connectWindow();
  addWindowWords();
}

void Desk::on(QStringView control, Event::Type type, std::function<void(int)> handler) {
  frmMain.on(control, type, [handler = std::move(handler)](Control& pressed, const Event&) {
    handler(pressed.index);
  });
}

void Desk::guard(Form& form, QStringView control, Event::Type type, std::vector<int> members) {
  form.around(control, type, [this, members](Control& pressed, const Event&, const auto& go) {
    const bool locked =
        members.empty() || std::ranges::find(members, pressed.index) != members.end();
    if (!locked || admits()) go();
  });
}

std::function<void()> Desk::guarded(std::function<void()> act) {
  return [this, act = std::move(act)] {
    if (admits()) act();
  };
}

void Desk::openTab(TabIndex tab) {
  if (!tabs.open(tab)) tabs.imgTabs_Click(tab);
}

void Desk::addTabWord(TabIndex tab, const QString& word, const QString& icon,
                      const QString& meaning) {
  words.add({word, icon, meaning, [this, tab] { tabs.imgTabs_Click(tab); }});
}

void Desk::connectWindow() {
  on(u"imgTabs", Event::Click, [this](int i) {
    for (const auto& heard : onTabPress) heard();
    if (!state.loadingForm) tabs.imgTabs_Click(i);
  });
  on(u"imgExit", Event::Click, [this](int) { window.imgExit_Click(); });
  on(u"cmdMinimize", Event::Click, [this](int) { window.cmdMinimize_Click(); });
  for (const char* way : {"imgExit", "cmdMinimize", "cmdSetup"})
    guard(frmMain, QString::fromLatin1(way), Event::Click);
}

void Desk::addWindowWords() {
  words.add({u"RESTART"_s, u"btnrestart"_s, u"restart the computer"_s,
             guarded([this] { window.askShutdown(true); })});
  words.add({u"SHUTDOWN"_s, u"btnshutdown"_s, {}, guarded([this] { window.askShutdown(false); })});
  words.add({u"MINIMISE"_s, u"btnminimise"_s, u"show what is behind"_s,
             guarded([this] { window.cmdMinimize_Click(); })});
  words.add(
      {u"EXIT"_s, u"btnexit"_s, u"leave Korvane"_s, guarded([this] { window.imgExit_Click(); })});
}

}  // namespace korvane
