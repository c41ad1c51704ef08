// How the music that plays is shown: captions, the position slider, the transport's pictures, the
// cover and the two pictures of where it plays.
#pragma once

#include "core/form/panel.h"

namespace korvane {

class MusicPresenter {
 public:
  explicit MusicPresenter(Form& form);  // which outlives it

  void showSong(const QString& title);
  void showConnecting();
  void showResumed();  // the pictures of the transport

  void showPosition(double seconds);
  void showLength(double seconds);  // in its caption and as the end of the slider
  void DisplayDuration(double seconds);
  void ShowSliderTimes();  // in Slider1's text and in TxtTime
  bool atStart() const { return panel_.Slider1->value() == 0; }
  void backToStart() { panel_.Slider1->value = 0; }

  void showVolume(double level, double maximum);  // nothing while the maximum is not known

  void hideCover();
  void showCover(const QByteArray& image);  // it comes up on the Music page only

  void showPlace(bool local);  // at seat, or in the cabin

  Timer& MusicTimer() { return *panel_.MusicTimer; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Slider* Slider1 = bind("Slider1");
    Label* TxtTime = bind("TxtTime");
    Label* lblDuration = bind("lblDuration");
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* lblVolume = bind("lblVolume");
    Control* coverArt = bind("coverArt");
    Image* play = bind("cmdControls", 1);
    Image* pause = bind("cmdControls", 2);
    Image* stop = bind("cmdControls", 3);
    std::array<Image*, 2> lblMusicPlay = bind("lblMusicPlay");
    Image* musicTab = bind("imgTabs", 0);
    Timer* MusicTimer = bind("MusicTimer");
  };
  Panel panel_;
};

}  // namespace korvane
