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
      awake(system.screenPower, state),
      frmMain(u"frmMain"_s, mainInventory(), kSurface, FormRole::Main),
      frmSplash(u"frmSplash"_s, splashInventory(), kSurface, FormRole::Splash),
      addTimer(frmMain, state),
      messages(host, palette),
      dialogs{host, palette, messages},
      chooser(dialogs, doors.files),
      main(frmMain, state),
      tabs({frmMain, state, screen, messages, log}),
      paging(frmMain, tabs),
      parts(main, paging, state, settings),
      players({frmMain, state, settings, screen, tabs, system.pump}),
      startup({system, state, settings, graphics, palette, log, screen, main, tabs, host, frmSplash,
               addTimer, steps, mixerOpened}),
      window({frmMain, state, host, messages, startup, system.tray, system.session},
             std::move(end)) {
  tabs.closeAlwaysOnTop = [this] { window.closeAlwaysOnTop(); };
  Form::failed = [this](const Form& form, const QString& handler, const QString& what) {
    failed(what, handler.toLatin1(), "Form " + form.name.toLatin1());
  };
  connectWindow();
  connectPaging();
  connectPlayers();
  addWindowWords();
}

Desk::~Desk() {
  Form::failed = nullptr;
}

void Desk::failed(const QString& what, const QByteArray& procedure, const QByteArray& module) {
  log.error(5, what, procedure.constData(), module.constData());
  messages.say(what);
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

void Desk::connectPaging() {
  on(u"VscrollAllSongs", Event::Change, [this](int) { paging.VscrollAllSongs_Change(); });
  on(u"VscrollAllSongs", Event::Scroll, [this](int) { paging.VscrollAllSongs_Scroll(); });
  on(u"VscrollAllSongs", Event::Release, [this](int) { paging.VscrollAllSongs_Release(); });
  on(u"cmdOneSong", Event::Press, [this](int i) {
    if (i < 2) paging.cmdOneSong_Press(i);  // the others are the playlist editor's
  });
  on(u"cmdOneSong", Event::Release, [this](int) { paging.endRepeat(); });
  on(u"RepeatTimer", Event::Tick, [this](int) { paging.RepeatTimer_Tick(); });
}

void Desk::connectPlayers() {
  on(u"cmdControls", Event::Click,
     [this](int i) { players.cmdControls_Click(static_cast<TransportButton>(i)); });
  on(u"Slider1", Event::Press, [this](int) { players.Slider1_Press(); });
  on(u"Slider1", Event::Scroll, [this](int) { players.Slider1_Scroll(); });
  on(u"Slider1", Event::Release, [this](int) { players.Slider1_Release(); });
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
