// Jukebox mode: a press on a song queues it, the queue plays from its top, and each song leaves it
// when it has ended. The queue is rsPlaySongs, mirrored row for row in Grid(6); row 1 is the one
// that plays.
#pragma once

#include "core/form/panel.h"
#include "core/palette.h"
#include "playback/transport.h"

namespace korvane {

class Jukebox : public Transport::Queue {
 public:
  struct Uses {
    MainForm& main;
    AppState& state;
    const Palette& palette;
    Database& database;
    Browsing& browsing;
    Transport& transport;
    Pump& pump;
    Chance& chance;
  };
  Jukebox(Form& form, Uses uses);

  void optMode_Click(int index);  // 0 normal, 1 jukebox; nothing when it is so already. Yields.
  void setUpQueue();              // while it is on, the list of the queue looks like one

  std::function<void()> modeChanged;

  // Transport::Queue
  void jukeboxAdd(const PlaySong& song) override;  // Yields.
  void jukeboxNext() override;                     // Yields.
  void playTop() override;                         // Yields.
  void deleteSelection() override;

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Image*, 2> optMode = bind("optMode");
    std::array<Image*, 8> cmdControls = bind("cmdControls");
    Image* cmdTopPlaylist = bind("cmdTop", 2);
    Grid* queue = bind("Grid", 6);
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
  };
  void enter();
  void leave();
  void showCount();
  void removeRow(int row);
  void pageQueue();

  Uses uses_;
  Panel panel_;
  bool topPlays_ = false;  // what plays is row 1: it has not been deleted meanwhile
};

}  // namespace korvane
