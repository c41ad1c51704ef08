// How the music that plays is shown: what all that plays shows, the cover and the two pictures of
// where it plays.
#pragma once

#include "listener/play_presenter.h"

namespace korvane {

class MusicPresenter : public PlayPresenter {
 public:
  explicit MusicPresenter(Form& form);  // which outlives it

  void hideCover();
  void showCover(const QByteArray& image);  // it comes up on the Music page only

  void showPlace(bool local);  // at seat, or in the cabin

  Timer& MusicTimer() { return *panel_.MusicTimer; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Control* coverArt = bind("coverArt");
    std::array<Image*, 2> lblMusicPlay = bind("lblMusicPlay");
    Image* musicTab = bind("imgTabs", 0);
    Timer* MusicTimer = bind("MusicTimer");
  };
  Panel panel_;
};

}  // namespace korvane
