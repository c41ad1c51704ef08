// The way back to a list that was running: after a press that put another in its place, a bar
// offers for ten seconds to bring it back, with the song that ran at the place where it was.
#pragma once

#include "core/form/panel.h"
#include "playback/transport.h"

namespace korvane {

class ListUndo {
 public:
  struct Uses {
    const AppState& state;
    const Settings& settings;
    MusicConnection& connection;
    Transport& transport;
    Browsing& browsing;
    Pump& pump;
  };
  ListUndo(Form& form, Uses uses);

  // Runs a press, and offers the way back when it has replaced a list that was running.
  void around(const std::function<void()>& press);

  void cmdListUndo_Click();  // Yields.
  void hide();

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Frame* framListUndo = bind("framListUndo");
    Label* lblListUndo = bind("lblListUndo");
    Label* lblCurrentPlayList = bind("lblCurrentPlayList");
    Button* cmdListUndo = bind("cmdListUndo");
    Timer* ListUndoTimer = bind("ListUndoTimer");
    Slider* Slider1 = bind("Slider1");
  };

  Uses uses_;
  Panel panel_;
  Transport::Running kept_;  // the list that ran
  double seconds_ = 0;       // into its song
  QString caption_;          // of lblCurrentPlayList
};

}  // namespace korvane
