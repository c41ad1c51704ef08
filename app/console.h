// The console: every part made once, in the order of the house, and wired. Needs the doors to the
// outside and something that shows forms; knows no widget.
#pragma once

#include "control/control_tabs.h"
#include "core/startup.h"
#include "core/window_buttons.h"
#include "custom/buttons/button_editor.h"
#include "custom/guest_lock.h"
#include "custom/main_tab.h"
#include "library/data/database.h"
#include "library/lists/browsing.h"
#include "library/lists/favourites.h"
#include "library/lists/playlist_editor.h"
#include "listener/link_supervision.h"
#include "listener/screens/listeners_form.h"
#include "listener/screens/network_form.h"
#include "movies/movies_tab.h"
#include "photos/photos_tab.h"
#include "platform/system.h"
#include "playback/cd_player.h"
#include "playback/jukebox.h"
#include "playback/list_undo.h"
#include "playback/music_tab.h"
#include "playback/transport.h"
#include "playback/volume.h"

namespace korvane {

class Screens;

class Console : private StartupParts {
 public:
  using MakeHost = std::function<std::unique_ptr<FormHost>(Graphics&)>;
  // `home` is the program directory; `makeHost` makes what shows forms; `end` ends the program.
  Console(System& system, const MakeHost& makeHost, QString home, std::function<void()> end);
  ~Console() override;

  bool SubMain() { return startup.SubMain(); }  // Yields.

  // In the order of the house.
  System& system;
  AppState state;
  Settings settings;
  Log log;
  Graphics graphics;
  std::unique_ptr<FormHost> ownHost;
  FormHost& host;
  Palette palette;
  Screen screen;
  Form frmMain, frmSplash;
  ThemedMessages messages;
  MainForm main;
  TabController tabs;
  TabParts parts;
  Database database;
  Playlists playlists;
  std::unique_ptr<Winsock> connectionMP3, connectionMovie, connectionML, x10Control;
  MasterListener master;
  NetworkForm network;
  ListenersForm listeners;
  MusicConnection music;
  LinkSupervision links;
  Transport transport;
  Browsing browsing;
  Jukebox jukebox;
  Volume volume;
  PlaylistEditor editor;
  Favourites favourites;
  ListUndo listUndo;
  CdPlayer cd;
  MusicTab musicTab;
  MoviesTab moviesTab;
  PhotosTab photosTab;
  CustomButtons buttons;
  ButtonEditor buttonEditor;
  HomePanel homePanel;
  MainTab mainTab;
  MapsTab mapsTab;
  MoreTab moreTab;
  Startup startup;
  WindowButtons window;
  GuestLock guestLock;
  std::unique_ptr<Screens> screens;

  // Opens the ripper; empty while this console has none.
  std::function<void()> openRipper;

  void doAction(ButtonAction action);  // of an owner's button. Yields.

 private:
  void wire();
  void wireMusic();
  void wireNetwork();
  void wireSound();
  void wirePlaylists();
  void wireWindow();
  void wireHome();

  // StartupParts
  void showMainForm() override;
  void initialiseMap() override {}
  void connectMasterListener() override { master.connectionMLConnect(); }
  void fillArtists() override;
  void fillAlbums() override;
  void fillSongs() override;
  void setUpGrids() override { browsing.setUpGrids(); }
  void loadMovedControls() override;
  void domainpage() override { mainTab.domainpage(); }
  void openMusicList(int command);
  void shuffle();
  void playPause();
  void lblMoviesPlay_Click(int index) override { moviesTab.lblMoviesPlay_Click(index); }
  void loadAds() override {}
  void stopCd() override { cd.stopCd(); }
  void closeMap() override {}
  void closeConnections() override;
  void releasePhotos() override {}
};

}  // namespace korvane
