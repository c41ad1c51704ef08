// How what plays is shown on the controls that music and movies share: the status line, the
// position slider, the times, the transport's pictures and the level.
#pragma once

#include "core/form/panel.h"

namespace korvane {

class PlayPresenter {
 public:
  explicit PlayPresenter(Form& form);  // which outlives it

  void showStatus(const QString& text);
  void showTitle(const QString& title) { showStatus(u"Playing: "_s + title); }
  void showConnecting();
  void showResumed();  // the pictures of the transport

  void showPosition(double seconds);
  void showPositionWithin(double seconds);  // cut to the length, where one is known
  void showSliderText(const QString& text) { panel_.Slider1->text = text; }
  void showLength(double seconds);  // in its caption and as the end of the slider
  void DisplayDuration(double seconds);
  void ShowSliderTimes();  // in Slider1's text and in TxtTime
  bool atStart() const { return panel_.Slider1->value() == 0; }
  void backToStart() { panel_.Slider1->value = 0; }
  void showNoTime();  // nothing plays: "--:--:--", no length

  void showVolume(double level, double maximum);  // nothing while the maximum is not known

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Slider* Slider1 = bind("Slider1");
    Label* TxtTime = bind("TxtTime");
    Label* lblDuration = bind("lblDuration");
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* lblVolume = bind("lblVolume");
    Image* play = bind("cmdControls", 1);
    Image* pause = bind("cmdControls", 2);
    Image* stop = bind("cmdControls", 3);
  };
  Panel panel_;
};

}  // namespace korvane
