// Form_Load of frmMain, in its order.
#include "core/startup.h"

namespace korvane {
namespace {

void fontsAndPlaces(Form& form) {
  struct Text {
    const char* name;
    int units;
    bool bold;
    int align;
  };
  static constexpr Text texts[] = {
      {"lblCurrentPlay", 28, true, -1}, {"lblCurrentPlayList", 24, false, 1},
      {"TxtTime", 28, true, 0},         {"lblDuration", 28, false, 0},
      {"lblVolume", 22, false, 0},      {"lblX10", 26, false, -1},
  };
  for (const Text& text : texts) {
    auto* label = dynamic_cast<Label*>(form.find(QString::fromLatin1(text.name)));
    label->fontUnits = text.units;
    label->bold = text.bold;
    label->align = text.align;
  }
  dynamic_cast<Label*>(form.find(u"lblVolume"))->wraps = true;
  for (const char* name : {"VscrollAllSongs", "playlistslider", "FMSlider", "AMSlider"})
    dynamic_cast<Slider*>(form.find(QString::fromLatin1(name)))->vertical = true;
}

void picture(Form& form, const char* name, int index, const char* group, const char* pictureName) {
  form.find(QString::fromLatin1(name), index)
      ->setPicture(QString::fromLatin1(group), QString::fromLatin1(pictureName));
}

}  // namespace

void Startup::Form_Load() {
  AppState& state = uses_.state;
  Form& form = uses_.main.form();
  Pump& pump = uses_.system.pump;
  state.loadingForm = true;
  if (state.gAddsOn) form.find(u"AddTimer")->enabled = true;

  status(u"Loading maps...."_s);
  if (state.gMapsEnabled) run(Step::Map);
  status(u"Checking for master listener...."_s);
  run(Step::MasterListener);

  status(u"Loading initial graphics...."_s);
  state.gMusicState = MusicState::Stop;
  fontsAndPlaces(form);
  applyColours();
  applyPictures();
  for (int i = 0; i <= form.upperBound(u"lblConnectStat"); ++i)
    form.find(u"lblConnectStat", i)->caption = QString();
  form.find(u"lblDuration")->caption = QString();
  form.find(u"lblCurrentPlayList")->caption = QString();
  run(Step::SetUpLists);

  status(u"Loading all artist...."_s);
  run(Step::FillArtists);
  form.find(u"Grid", 0)->visible = true;
  dynamic_cast<Grid*>(form.find(u"Grid", 2))->clear();
  uses_.tabs.imgTabs_Click(kMainTab);

  status(u"Loading all albums...."_s);
  run(Step::FillAlbums);
  status(u"Loading all songs...."_s);
  run(Step::FillSongs);
  pump.doEvents();

  status(u"Loading graphics...."_s);
  if (uses_.screen.MousePointer() == Screen::Default) uses_.screen.MousePointer = Screen::Custom;
  uses_.main.rememberGrids();
  const bool cameraProgram =
      uses_.system.files.FileExists(uses_.settings.home() + u"/krvCamera.exe"_s);
  if (cameraProgram) state.gCamera = true;
  chooseMovieType();
  run(Step::MovedControls);
  uses_.main.rememberPlaces();
  run(Step::MainPage);
  chooseMusicRole();
  state.loadingForm = false;
  removeTabs();
}

void Startup::applyColours() {
  Form& form = uses_.main.form();
  const Palette& palette = uses_.palette;
  const struct {
    const char* control;
    QStringView element;
  } sliders[] = {{"playlistslider", u"PlayListSlider"}, {"VscrollAllSongs", u"MusicSlider"},
                 {"Slider1", u"DurationSlider"},        {"scrollDelay", u"DurationSlider"},
                 {"scrollVolume", u"DurationSlider"},   {"FMSlider", u"MusicSlider"},
                 {"AMSlider", u"MusicSlider"}};
  for (const auto& [control, element] : sliders)
    form.find(QString::fromLatin1(control))->colours = palette.slider(element);

  const Colours status = palette.button(u"Status");
  Colours ink;
  ink.fore = status.fore;
  ink.selected = palette.back(u"Accent");
  for (const char* name :
       {"lblCurrentPlay", "lblCurrentPlayList", "TxtTime", "lblDuration", "lblVolume", "lblX10"})
    form.find(QString::fromLatin1(name))->colours = ink;
  form.colours = status;
  form.find(u"framSongEdit")->colours = palette.button(u"PlayListcontrols");
  form.find(u"cmdPlayListChoices", 0)->colours = palette.button(u"PlayListCancel");
  form.find(u"cmdPlayListChoices", 1)->colours = palette.button(u"PlayListSave");
  for (const char* name :
       {"frameButtons", "frameHome", "frameMap", "newKeyboard", "framListUndo", "framLink"})
    form.find(QString::fromLatin1(name))->colours = palette.button(u"Surface");
  form.find(u"framex10")->colours = palette.button(u"X10BACK");
  for (const auto& control : form.controls())
    if (control->kind == Kind::Button && !control->colours().back)
      control->colours = palette.button(u"Button");
}

void Startup::applyPictures() {
  Form& form = uses_.main.form();
  const AppState& state = uses_.state;
  static constexpr struct {
    const char *control, *group, *name;
    int index;
  } pictures[] = {
      {"cmdControls", "music", "prev", 0},
      {"cmdControls", "music", "play", 1},
      {"cmdControls", "music", "pause", 2},
      {"cmdControls", "music", "stopb", 3},
      {"cmdControls", "music", "next", 4},
      {"cmdControls", "music", "repeat", 5},
      {"cmdControls", "music", "random", 6},
      {"cmdControls", "music", "continue off", 7},
      {"cmdOneSong", "root", "UP", 0},
      {"cmdOneSong", "root", "DOWN", 1},
      {"cmdOneSong", "root", "UP", 2},
      {"cmdOneSong", "root", "DOWN", 3},
      {"optMode", "music", "normalon", 0},
      {"optMode", "music", "jukeboxoff", 1},
      {"cmdFavoriateAdd", "music", "AddFav", -1},
      {"cmdPlayLists", "music", "plmanage", -1},
      {"mute", "music", "mute", -1},
      {"ScrollVolumeUp", "music", "volplus", -1},
      {"ScrollVolumeDN", "music", "volminus", -1},
      {"cmdPlayListCommands", "music", "trash", 0},
      {"cmdPlayListCommands", "music", "moveSongup", 1},
      {"cmdPlayListCommands", "music", "moveSongdown", 2},
      {"cmdPlayListCommands", "music", "addSong", 3},
      {"cmdPlayListCommands", "music", "addAlbum", 4},
      {"cmdMenuforDVD", "movies", "menu", -1},
      {"cmdMovieFullScreen", "movies", "fullscreen", -1},
      {"cmdPhotoSetup", "photos", "manage", -1},
      {"cmdSetup", "root", "setup", -1},
      {"imgTabs", "main", "mainb", 3},
      {"imgTabs", "music", "music", 0},
      {"imgTabs", "more", "more", 5},
      {"imgTabs", "movies", "movies", 1},
      {"imgTabs", "photos", "photo", 2},
      {"pCamera", "root", "camera", -1},
  };
  for (const auto& [control, group, name, index] : pictures)
    picture(form, control, index, group, name);
  picture(form, "imgTabs", 4, state.gRadioEnabled ? "radio" : "maps",
          state.gRadioEnabled ? "radio" : "maps");
  for (int i = 0; i <= form.upperBound(u"cmdTop"); ++i)
    form.find(u"cmdTop", i)->setPicture(u"music"_s, uses_.main.topPicture(i, false));

  form.find(u"imgExit")->picture = Picture();
  form.find(u"cmdMinimize")->picture = Picture();
  if (state.gShowExit) picture(form, "imgExit", -1, "root", "exit");
  if (state.gShowMin) picture(form, "cmdMinimize", -1, "root", "minimize");
  form.find(u"imgExit")->visible = state.gShowExit;
  form.find(u"cmdMinimize")->visible = state.gShowMin;
  form.find(u"cmdSetup")->visible = state.gShowSetup;
}

void Startup::chooseMovieType() {
  AppState& state = uses_.state;
  Form& form = uses_.main.form();
  state.gMovieType = movieTypeOf(uses_.settings.GetSetting(u"KRV"_s, u"MOVIES"_s, u"MOVIETYPE"_s));
  const bool remoteDvd = state.gMovieType == MovieType::Dvd && state.gMovieListener;
  if (remoteDvd) {
    state.gMovieType = MovieType::ListenerDvd;
    form.find(u"cmdControls", 0)->toolTip = u"Previous Chapter"_s;
    form.find(u"cmdControls", 4)->toolTip = u"Next Chapter"_s;
  }
  picture(form, "lblMovieType", 0, "movies", remoteDvd ? "DigitalMovieOFF" : "DigitalMovieOn");
  picture(form, "lblMovieType", 1, "movies", remoteDvd ? "DVDPlayerON" : "DVDPlayerOFF");
  picture(form, "lblMovieType", 2, "movies", "DVDDigitalOFF");
}

void Startup::chooseMusicRole() {
  AppState& state = uses_.state;
  Form& form = uses_.main.form();
  const QString role = uses_.settings.GetSetting(u"KRV"_s, u"MUSIC"_s, u"MUSICTYPE"_s);
  if (role == "LOCAL"_L1) state.gLocalListener = true;
  if (role == "SERVER"_L1) state.gLocalListener = false;
  picture(form, "lblMusicPlay", 0, "music", state.gLocalListener ? "AtSeatOn" : "AtSeatOff");
  picture(form, "lblMusicPlay", 1, "music", state.gLocalListener ? "InCabinOff" : "InCabinOn");

  run(Step::MovieRole);
  state.gMusicType = MusicSource::Digital;  // a start always begins with digital music
  picture(form, "lblMusicType", 0, "music", "CDplayerOff");
  picture(form, "lblMusicType", 1, "music", "DigitalMusicOn");
}

void Startup::removeTabs() {
  constexpr int kOffTheForm = -9000;
  const struct {
    const SettingKey& shown;
    int tab;
  } tabs[] = {{key::ShowPhoto, kPhotosTab}, {key::ShowMap, kMapsTab}, {key::ShowControl, kMoreTab}};
  for (const auto& [shown, tab] : tabs) {
    Control* image = uses_.main.form().find(u"imgTabs", tab);
    Rect place = image->rect();
    if (!uses_.settings.flag(shown))
      place.left = kOffTheForm;
    else if (place.left == kOffTheForm)
      place.left = image->laid.left;
    image->rect = place;
  }
}

}  // namespace korvane
