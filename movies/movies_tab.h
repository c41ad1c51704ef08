// The Movies tab: the movie list, the picture's place and the DVD's keys.
#pragma once

#include "core/tab.h"
#include "core/tab_controller.h"
#include "core/tab_parts.h"

namespace korvane {

class MoviesTab : public Tab {
 public:
  explicit MoviesTab(TabParts& parts);

  void leave() override;
  void enter() override;
  Grid* list() override;

  // Where movies play: 0 at seat, 1 in cabin. Refused unless nothing plays.
  void lblMoviesPlay_Click(int index);

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Image*, 8> cmdControls = bind("cmdControls");
    std::array<Image*, 2> lblMoviesPlay = bind("lblMoviesPlay");
    std::array<Grid*, kMusicLists> grid = bind("Grid");
    Image* mute = bind("mute");
    Grid* MovieList = bind("MovieList");
    Timer* movieTimer = bind("movieTimer");
  };

  void showMute();

  TabParts& parts_;
  Panel panel_;
  ControlSet list_, picture_, remote_, menu_, types_, roles_, listPlay_;
};

}  // namespace korvane
