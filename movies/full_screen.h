// The picture of what plays over the whole screen: cmdMovieFullScreen. At this seat MoviePic or
// MSWebDVD1 takes the whole form; in the cabin the Listener is told.
#pragma once

#include "core/form/panel.h"
#include "movies/movie_transport.h"

namespace korvane {

class FullScreen {
 public:
  struct Uses {
    Form& form;
    const AppState& state;
    MovieTransport& transport;
    MovieConnection& connection;
  };
  explicit FullScreen(Uses uses) : uses_(uses), panel_(uses.form) {}

  void cmdMovieFullScreen_Click();  // Yields.
  void set(bool on);                // nothing where no picture is shown here
  void toggle() { set(!on()); }
  bool on() const { return surface_ != nullptr; }
  void listenerIsLarge() { showButton(true); }  // it has said so

  std::function<void()> changed = [] {};

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Surface* MoviePic = bind("MoviePic");
    Surface* MSWebDVD1 = bind("MSWebDVD1");
    Image* cmdMovieFullScreen = bind("cmdMovieFullScreen");
  };

  void showButton(bool large);

  Uses uses_;
  Panel panel_;
  Surface* surface_ = nullptr;  // that has the whole screen
  Rect before_;                 // its place on the design surface
};

}  // namespace korvane
