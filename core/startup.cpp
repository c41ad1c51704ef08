#include "core/startup.h"

namespace korvane {
namespace {

constexpr InventoryRow kSplash[] = {
    {"lblStatus",
     -1,
     Kind::Label,
     {240, 640, 800, 44},
     Left | Top,
     "Status",
     "",
     true,
     {.text = 28, .align = 0}},
    {"lblVersion",
     -1,
     Kind::Label,
     {240, 690, 800, 36},
     Left | Top,
     "Version",
     "",
     true,
     {.text = 24, .align = 0}},
};

}  // namespace

std::span<const InventoryRow> splashInventory() {
  return kSplash;
}

Startup::Startup(Uses uses) : uses_(uses), splash_(uses.splash), panel_(uses.main.form()) {}

void Startup::run(Step step) {
  for (const std::function<void()>& work : uses_.steps.works(step))
    uses_.log.guard("Form_Load", "Form frmMain", work);
}

void Startup::status(const QString& text) {
  if (!uses_.splash.shown()) return;
  splash_.lblStatus->caption = text;
  uses_.system.pump.doEvents();
}

bool Startup::SubMain() {
  AppState& state = uses_.state;
  uses_.graphics.initGraphicsCache();
  state.gTheme = uses_.settings.upper(key::Theme);
  if (!uses_.graphics.themeExists()) {
    uses_.system.box.show(u"Theme does not exist, no graphics to show. Check INI Theme setting."_s);
    return false;
  }
  state.gMasterListenerMyName = uses_.settings.str(key::MasterListenerMyName);
  uses_.splash.picture = Picture{u"root"_s, u"splash"_s, nullptr};
  uses_.host.show(uses_.splash);
  // The picture alone comes first: the first text of a program takes as long as all of it.
  splash_.lblVersion->caption = QStringLiteral(KORVANE_VERSION);
  if (!readSettings() || !requirementsHold()) return false;

  uses_.host.show(uses_.main.form());
  Form_Load();
  // The mixer alone governs the sound of this console, where there is one.
  if (state.gLocalListener && !mixerMissing_) uses_.system.player.setVolume(0);
  status(u"Loading adds....."_s);
  if (state.gAddsOn) run(Step::Ads);
  uses_.host.fadeOut(uses_.splash, 1000);
  return true;
}

bool Startup::requirementsHold() {
  try {
    for (const auto& work : uses_.steps.works(Step::Requirements)) work();
    return true;
  } catch (const std::exception& failure) {
    const QString why = QString::fromUtf8(failure.what());
    uses_.log.error(5, why, "Main", "Module Main");
    uses_.system.box.show(why);
    return false;
  }
}

bool Startup::readSettings() {
  AppState& state = uses_.state;
  const Settings& settings = uses_.settings;
  state.gAddsOn = settings.flag(key::ADDSON);

  status(u"Loading settings...."_s);
  state.gMainPage = settings.str(key::MainPage);
  if (state.gMainPage == "NO"_L1) state.gMainPage = u"WB"_s;
  state.gGridHeight = settings.number(key::GridHeight);
  state.gLocalServer = settings.flag(key::LocalServer);
  state.gMasterListenerIP = settings.str(key::MasterListenerIP);
  state.gMasterListenerPort = settings.str(key::MasterListenerPort);
  state.gGridFontSize = settings.number(key::GridFontSize);
  if (uses_.system.instance.taken()) return false;

  status(u"Loading settings....3"_s);
  state.gMapsEnabled = settings.flag(key::Maps);
  state.gRadioEnabled = settings.flag(key::Radio);
  state.gRadioEnabled = false;  // the radio sleeps, whatever is stored

  status(u"Loading settings....32"_s);
  state.gShowSetup = settings.flag(key::ShowSetup);
  state.gShowMin = settings.flag(key::ShowMin);
  state.gShowExit = settings.flag(key::ShowExit);
  state.gShowMute = settings.flag(key::ShowMute);
  state.gControlButtonsMain = settings.flag(key::ControlButtonsmain);
  state.gShowInTheTaskBar = settings.upper(key::ShowInTheTaskBar);
  readNetworkSettings();
  return true;
}

void Startup::readNetworkSettings() {
  AppState& state = uses_.state;
  const Settings& settings = uses_.settings;
  state.gX10 = settings.upper(key::X10);
  state.gPremise = settings.flag(key::Premise);

  // A cabin without a Master Listener may name its one Music Listener here.
  if (const QStringList place = settings.str(key::MusicListener).split(u':'); place.size() == 2) {
    state.gMusicListenerIP = place[0];
    state.gMusicListenerPort = place[1];
  }

  status(u"Loading settings....33"_s);
  state.gX10IP = settings.upper(key::X10IP);
  state.gX10Port = settings.upper(key::X10Port);
  state.gMovieListener = settings.flag(key::MovieListener);

  status(u"Loading settings....4"_s);
  state.gLocalListener = settings.flag(key::LOCALLISTENER);
  if (state.gLocalListener)
    uses_.system.mixer.openLater([this](bool opened) { takeMixer(opened); });

  status(u"Loading settings....5"_s);
  state.gDisplayVolume = settings.flag(key::DisplayVolume);
  state.gCamera = settings.flag(key::Camera);

  status(u"Loading settings....6"_s);
  uses_.system.pump.doEvents();
}

void Startup::takeMixer(bool opened) {
  mixerMissing_ = !opened;
  uses_.mixerOpened(opened);
  if (opened) return;
  const QString trouble = u"Couldn't open the mixer."_s;
  if (uses_.settings.flag(key::QuietMixer))
    uses_.log.logIt(trouble);
  else
    uses_.system.box.show(trouble);
}

void Startup::closeit() {
  run(Step::ReleasePhotos);
  run(Step::StopDisc);
  if (uses_.state.gMapsEnabled) run(Step::CloseMap);
  for (const Step link :
       {Step::CloseMovieLink, Step::CloseLightsLink, Step::CloseMasterLink, Step::CloseMusicLink})
    run(link);
  uses_.system.player.Stop();
  uses_.system.pump.doEvents();
}

}  // namespace korvane
