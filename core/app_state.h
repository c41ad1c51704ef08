// The shared state block: filled from the settings at start, read by all, written by the unit each
// field names. One thread, no lock.
#pragma once

#include "core/words.h"
#include "platform/machine.h"
#include "platform/text.h"

namespace korvane {

struct AppState {
  QString gTheme;  // upper case
  QString gMainPage = u"WB"_s;
  int gGridHeight = 19, gGridFontSize = 12;

  bool gLocalServer = false;    // offer the choice between at seat and in cabin
  bool gLocalListener = false;  // true: music plays here
  bool gMovieListener = false;  // true: movies play through the Movie Listener (the opposite sense)
  QString gMasterListenerIP, gMasterListenerPort, gMasterListenerMyName;
  QString gMusicListenerName, gMusicListenerIP, gMusicListenerPort;
  QString gMovieListenerName, gMovieListenerIP, gMovieListenerPort;

  QString gX10, gX10ListenerName, gX10IP, gX10Port;
  bool gPremise = false;
  bool gMapsEnabled = false, gRadioEnabled = false, gCamera = false;

  bool gShowSetup = false, gShowMin = false, gShowExit = false, gShowMute = false;
  bool gControlButtonsMain = false, gDisplayVolume = false;
  QString gShowInTheTaskBar;

  bool gAddsOn = false;

  MusicState gMusicState = MusicState::Stop;
  MusicSource gMusicType = MusicSource::Digital;
  QString gCdDrive;             // device or image of the CD source; empty for the first drive
  int gCdTrack = 0;             // that plays; 0 while none does
  bool discHoldsFiles = false;  // the CD at hand is a data disc: its songs play as files do
  bool playsDiscAudio() const { return gMusicType == MusicSource::Cd && !discHoldsFiles; }
  MovieType gMovieType = MovieType::Digital;
  bool gMovieDigitalPlaying = false;  // a row of the movies is a folder that holds a DVD
  PlayMode gPlayMode = PlayMode::Stopped;
  QString gSongPlayingTitle;  // of what plays or is paused, here or at the Listener; else empty
  bool gAlwaysOnTopShown = false;
  bool gFavoritesLoaded = false;
  bool gMusicTabVisited = false;
  QString gPlaylistDir;

  ScreenPower::Saved gSavedPower;

  // Of the main form.
  bool loadingForm = false;
  bool moveControlsMode = false;
  int currentTab = 0;
  MusicList gridMode = MusicList::Artists;  // on screen on the Music tab
  bool sliderHeld = false;                  // a finger holds the thumb of Slider1
  bool jukeboxMode = false;
  bool playListEditing = false, playListChanged = false, playListIsNew = false;
  QString playListFile;
};

}  // namespace korvane
