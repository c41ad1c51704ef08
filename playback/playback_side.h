// Playing music: the transport, the jukebox, the CD, the volume and the Music tab.
#pragma once

#include "library/library_side.h"
#include "listener/listener_side.h"
#include "playback/cd_player.h"
#include "playback/jukebox.h"
#include "playback/list_undo.h"
#include "playback/music_tab.h"
#include "playback/quick_play.h"
#include "playback/volume.h"

namespace korvane {

class PlaybackSide {
 public:
  PlaybackSide(Desk& desk, LibrarySide& library, ListenerSide& listener);

  Transport transport;
  Jukebox jukebox;
  ListUndo listUndo;
  CdPlayer cd;
  CoverView cover;
  QuickPlay quick;
  MusicTab musicTab;
  Volume volume;

 private:
  void connectTransport(Desk& desk);
  void connectLists(Desk& desk);
  void connectSound(Desk& desk);
  void showHeard(Desk& desk);
  void addListWords(Desk& desk);
  void addPlayWords(Desk& desk);
};

}  // namespace korvane
