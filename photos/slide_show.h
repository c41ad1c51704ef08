// The show of pictures on the Photos tab, in the place of its list, and its way to the full screen.
// It plays beside the music; while it is on, the transport's buttons of this tab are its own.
#pragma once

#include "core/add_timer.h"
#include "core/dialog.h"
#include "core/keep_awake.h"
#include "core/paging.h"
#include "core/player.h"
#include "core/screen.h"
#include "photos/show_area.h"

namespace korvane {

class SlideShow : public Player {
 public:
  struct Uses {
    MainForm& main;
    AppState& state;
    Settings& settings;
    const Palette& palette;
    Paging& paging;
    KeepAwake& awake;
    DialogUses dialogs;
    System& system;
    Log& log;
    clsPicture& pictures;
    AddTimer& addTimer;  // rests from the touch that begins a show until the show ends
  };
  explicit SlideShow(Uses uses);

  // A file of PhotoList was touched: the show of its directory, from the picture as far down as the
  // row, or by key StartAtTouched from the file itself. Nothing where there is no picture. Yields.
  void start(int row, const QString& directory, const QString& name);
  void end();    // the list comes back
  void leave();  // the tab is left, and nothing of it comes back
  bool on() const { return panel_.picTransition->visible(); }

  // Player
  void press(TransportButton button) override;
  PlayMode mode() const override;
  bool silent() const override { return true; }
  void moveTo(double) override {}

  void stopTimer() { area_.run(false); }  // until a show begins or the delay is moved
  void showTransport();  // its buttons, as the show stands or, where there is none, at rest

  void scrollDelay_Change();
  void PicTimer_Timer();
  void picTransition_DblClick();    // Yields.
  void cmdMovieFullScreen_Click();  // while the show is on. Yields.

  // The list went to another directory by a touch. Coming back to the root keeps the idle seconds
  // at rest until the list goes elsewhere, a show ends or the tab is left, and so does a file
  // without a picture beside it; by key IdleByTouch both are touches like any other.
  void listMoved(bool toRoot);

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    PictureArea* picTransition = bind("picTransition");
    Grid* PhotoList = bind("PhotoList");
    Image* cmdPhotoSetup = bind("cmdPhotoSetup");
    Slider* scrollDelay = bind("scrollDelay");
    Label* lblDelay = bind("lblDelay");
    Timer* pictimer = bind("pictimer");
  };

  void showPage(bool pictures);

  Uses uses_;
  Panel panel_;
  ShowArea area_;
};

}  // namespace korvane
