// frmViewFullScreen: the show over the whole screen. It goes on in the rsFiles of the tab. A touch
// shows its tools, and a swipe goes to the next picture or the one before.
#pragma once

#include "core/dialog.h"
#include "core/form/panel.h"
#include "core/keep_awake.h"
#include "photos/show_area.h"

namespace korvane {

class ViewFullScreenForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    KeepAwake& awake;
    clsPicture& pictures;
    const Settings& settings;
    System& system;
    Log& log;
    const Form& main;  // whose surface it covers
  };
  explicit ViewFullScreenForm(const Uses& uses);

  // The show goes on from what is seen, a picture every so many milliseconds, until it is left.
  // Yields.
  void open(int interval, const ShowArea::Frame& seen);
  const ShowArea::Frame& seen() const { return area_.seen(); }  // last

 private:
  enum Tool { Next, Previous, Stop, Play, Exit, Hide, Controls };
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    PictureArea* picTransition = bind("picTransition");
    Frame* tools = bind("tools");
    Frame* mnuOptions = bind("mnuOptions");
    Frame* framPosition = bind("framPosition");
    Label* lblPosition = bind("lblPosition");
    std::array<Button*, 7> cmdTools = bind("cmdTools");
    Button* mnuPauses = bind("mnuPauses");
    Button* mnuPlay = bind("mnuPlay");
    Timer* pictimer = bind("pictimer");
  };

  void connect();
  void Form_Load(int interval, const ShowArea::Frame& seen);
  void cmdTools_Click(int index);
  void picTransition_Click(int x, int y);
  void toggleToolMode();
  void step(int by);
  void play(bool on);
  void showPosition();
  bool toolMode() const;

  Uses uses_;
  Panel panel_;
  ShowArea area_;
};

}  // namespace korvane
