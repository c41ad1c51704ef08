// Form_Load of frmMain, in its order. What the controls look like at first stands in the inventory;
// here stands what depends on the settings. What is lit when a reload comes stays lit.
#include "core/dressing.h"
#include "core/startup.h"

namespace korvane {

void Startup::Form_Load() {
  AppState& state = uses_.state;
  state.loadingForm = true;
  uses_.addTimer.apply();

  status(u"Loading maps...."_s);
  if (state.gMapsEnabled) run(Step::Map);
  status(u"Checking for master listener...."_s);
  run(Step::MasterListener);

  status(u"Loading initial graphics...."_s);
  state.gMusicState = MusicState::Stop;
  dressColours(uses_.main.form(), uses_.palette, u"Status");
  showByFlags();
  clearStatus();
  run(Step::SetUpLists);

  status(u"Loading all artist...."_s);
  run(Step::FillArtists);
  panel_.artists->visible = true;
  panel_.artistAlbums->clear();
  uses_.tabs.imgTabs_Click(kMainTab);

  status(u"Loading all albums...."_s);
  run(Step::FillAlbums);
  status(u"Loading all songs...."_s);
  run(Step::FillSongs);
  uses_.system.pump.doEvents();

  status(u"Loading graphics...."_s);
  if (uses_.screen.MousePointer() == Screen::Default) uses_.screen.MousePointer = Screen::Custom;
  uses_.main.rememberGrids();
  showCamera();
  chooseMovieType();
  run(Step::MovedControls);
  uses_.main.rememberPlaces();
  run(Step::MainPage);
  chooseMusicRole();
  state.loadingForm = false;
  removeTabs();
}

void Startup::clearStatus() {
  for (Label* link : panel_.lblConnectStat) link->caption = QString();
  panel_.lblDuration->caption = QString();
  panel_.lblCurrentPlayList->caption = QString();
}

void Startup::showByFlags() {
  const AppState& state = uses_.state;
  panel_.imgExit->visible = state.gShowExit;
  panel_.cmdMinimize->visible = state.gShowMin;
  panel_.cmdSetup->visible = state.gShowSetup;
  const QString place = state.gRadioEnabled ? u"radio"_s : u"maps"_s;
  panel_.imgTabs[kMapsTab]->setPicture(place, place);
}

// The Main tab, which is open, was entered before the camera was known.
void Startup::showCamera() {
  AppState& state = uses_.state;
  if (uses_.system.files.FileExists(uses_.settings.home() + u"/krvCamera.exe"_s))
    state.gCamera = true;
  panel_.pCamera->rect = panel_.pCamera->laid;
  panel_.pCamera->visible = state.gCamera;
}

void Startup::chooseMovieType() {
  AppState& state = uses_.state;
  state.gMovieType = movieTypeOf(uses_.settings.GetSetting(u"KRV"_s, u"MOVIES"_s, u"MOVIETYPE"_s));
  const bool remoteDvd = state.gMovieType == MovieType::Dvd && state.gMovieListener;
  if (remoteDvd) state.gMovieType = MovieType::ListenerDvd;
  const auto tip = [remoteDvd](Image& button, const QString& chapter) {
    button.toolTip = remoteDvd ? chapter : QString::fromUtf8(button.look.tip);
  };
  tip(*panel_.previous, u"Previous Chapter"_s);
  tip(*panel_.next, u"Next Chapter"_s);
  panel_.lblMovieType[0]->setPicture(u"movies"_s,
                                     remoteDvd ? u"DigitalMovieOFF"_s : u"DigitalMovieOn"_s);
  panel_.lblMovieType[1]->setPicture(u"movies"_s, remoteDvd ? u"DVDPlayerON"_s : u"DVDPlayerOFF"_s);
  panel_.lblMovieType[2]->setPicture(u"movies"_s, u"DVDDigitalOFF"_s);
}

void Startup::chooseMusicRole() {
  AppState& state = uses_.state;
  const QString role = uses_.settings.GetSetting(u"KRV"_s, u"MUSIC"_s, u"MUSICTYPE"_s);
  if (role == "LOCAL"_L1) state.gLocalListener = true;
  if (role == "SERVER"_L1) state.gLocalListener = false;
  const bool local = state.gLocalListener;
  panel_.lblMusicPlay[0]->setPicture(u"music"_s, local ? u"AtSeatOn"_s : u"AtSeatOff"_s);
  panel_.lblMusicPlay[1]->setPicture(u"music"_s, local ? u"InCabinOff"_s : u"InCabinOn"_s);

  run(Step::MovieRole);
  state.gMusicType = MusicSource::Digital;  // a start always begins with digital music
  panel_.lblMusicType[0]->setPicture(u"music"_s, u"CDplayerOff"_s);
  panel_.lblMusicType[1]->setPicture(u"music"_s, u"DigitalMusicOn"_s);
}

void Startup::removeTabs() {
  constexpr int kOffTheForm = -9000;
  const struct {
    const SettingKey& shown;
    TabIndex tab;
  } tabs[] = {{key::ShowPhoto, kPhotosTab}, {key::ShowMap, kMapsTab}, {key::ShowControl, kMoreTab}};
  for (const auto& [shown, tab] : tabs) {
    Image* image = panel_.imgTabs[tab];
    Rect place = image->rect();
    if (!uses_.settings.flag(shown))
      place.left = kOffTheForm;
    else if (place.left == kOffTheForm)
      place.left = image->laid.left;
    image->rect = place;
  }
}

}  // namespace korvane
