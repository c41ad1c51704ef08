// Playing with one press from anywhere: any song of the library, play or pause whatever there is,
// and the way to a list of the Music tab.
#pragma once

#include "core/desk.h"
#include "playback/list_undo.h"

namespace korvane {

class QuickPlay {
 public:
  struct Uses {
    Desk& desk;
    Browsing& browsing;
    Transport& transport;
    ListUndo& listUndo;
  };
  explicit QuickPlay(Uses uses) : uses_(uses) {}

  void openList(PageCommand list);  // Yields.
  // All songs, in any order, from any of them on; says so where there is none. Yields.
  void shuffle();
  // What is paused goes on, what was stopped begins again, and where nothing has played yet, any
  // song does. The jukebox and the CD know their own beginning. Yields.
  void playPause(Player& music);

 private:
  Uses uses_;
};

}  // namespace korvane
