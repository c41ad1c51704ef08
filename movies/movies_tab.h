// The Movies tab: the movie list, the picture's place and the DVD's keys.
#pragma once

#include "core/tab.h"
#include "core/tab_controller.h"
#include "core/tab_parts.h"
#include "movies/full_screen.h"
#include "movies/movie_source.h"

namespace korvane {

class MoviesTab : public Tab {
 public:
  struct Uses {
    TabParts& parts;
    MovieTransport& transport;
    MovieSource& source;
    MovieConnection& connection;
    FullScreen& full;
  };
  explicit MoviesTab(Uses uses);

  void leave() override;
  void enter() override;
  Player* player() override { return &uses_.transport; }
  Grid* list() override;

  // Shows the list, or the picture in its place, and the buttons that belong to what plays or is
  // chosen; nothing while the tab is not open.
  void showPage();

  void cmdRemoteDVD_Click(
      int index);  // enter, up, right, down, left of the Listener's DVD. Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Image*, 8> cmdControls = bind("cmdControls");
    std::array<Grid*, kMusicLists> grid = bind("Grid");
    Image* mute = bind("mute");
    Grid* MovieList = bind("MovieList");
    Surface* MoviePic = bind("MoviePic");
    Surface* MSWebDVD1 = bind("MSWebDVD1");
    Image* cmdMovieFullScreen = bind("cmdMovieFullScreen");
    Image* cmdMenuforDVD = bind("cmdMenuforDVD");
    Label* lblMovieNote = bind("lblMovieNote");
  };

  void showMute();
  void showNote();

  Uses uses_;
  TabParts& parts_;
  Panel panel_;
  ControlSet page_, remote_, types_, roles_, listPlay_;
  bool entered_ = false;
};

}  // namespace korvane
