// On the main form: the mark in the transport line that shows how far a run is, and the button
// beside the list of a CD's tracks that leads to the ripper.
#pragma once

#include "core/app_state.h"
#include "core/form/panel.h"
#include "ripper/rip_run.h"

namespace korvane {

class RipMark : public RipNews, private FormObserver {
 public:
  // `transport`: whether the open tab shows its line. The form, the state and the run outlive this.
  RipMark(Form& form, const AppState& state, const RipRun& run, std::function<bool()> transport);
  ~RipMark() override;

  void show();  // by the open tab and the run

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Button* cmdRipMark = bind("cmdRipMark");
    Button* cmdRip = bind("cmdRip");
    Slider* scrollVolume = bind("scrollVolume");
    Grid* discTracks = bind("Grid", static_cast<int>(MusicList::DiscTracks));
  };

  void makeRoom(bool on);

  void runBegan() override { show(); }
  void runMoved() override { show(); }
  void trackBegan(const RipTrack&) override {}
  void trackEnded(const RipTrack&, const RipResult&, bool) override {}
  void runEnds() override {}
  void runEnded(bool) override { show(); }

  void controlChanged(Control& control, Aspect aspect) override;
  void formChanged(Form&, Aspect) override {}

  Form& form_;
  const AppState& state_;
  const RipRun& run_;
  const std::function<bool()> transport_;
  Panel panel_;
};

}  // namespace korvane
