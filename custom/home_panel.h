// The upper half of a Main tab that is a home page: the time, the date, and what plays with its
// cover and the buttons for it. It mirrors the controls of the transport, and only while it shows.
#pragma once

#include "core/form/form.h"
#include "core/form/panel.h"
#include "core/settings.h"
#include "platform/clock.h"

namespace korvane {

class HomePanel : private FormObserver {
 public:
  struct Uses {
    const AppState& state;
    const Settings& settings;
    const Clock& clock;
  };
  HomePanel(Form& form, Uses uses);  // all must outlive it
  ~HomePanel() override;

  // Set by the console: the artist of the song that plays, a press on the transport, play or pause
  // whatever there is, and the way to the song in its list.
  std::function<QString()> artist = [] { return QString(); };
  std::function<void(TransportButton)> pressTransport = [](TransportButton) {};
  std::function<void()> playPause = [] {};
  std::function<void()> showSong = [] {};

  void show();  // nothing unless "HomePanel" is on
  void hide();
  void editing(bool on);  // the place of the clock is free for the buttons' pattern

  void HomeTimer_Timer();         // shows time and date, and comes again with the next minute
  void cmdHome_Click(int index);  // 0 previous, 1 play or pause, 2 next. Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblHomeClock = bind("lblHomeClock");
    Label* lblHomeDate = bind("lblHomeDate");
    Label* lblHomeTitle = bind("lblHomeTitle");
    Label* lblHomeArtist = bind("lblHomeArtist");
    Label* lblHomePosition = bind("lblHomePosition");
    Frame* frameHome = bind("frameHome");
    PictureArea* picHomeCover = bind("picHomeCover");
    PictureArea* coverArt = bind("coverArt");
    std::array<Image*, 3> cmdHome = bind("cmdHome");
    Timer* HomeTimer = bind("HomeTimer");
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* TxtTime = bind("TxtTime");
    Label* lblDuration = bind("lblDuration");
    Image* cmdPlay = bind("cmdControls", 1);
  };

  void controlChanged(Control& control, Aspect aspect) override;
  void formChanged(Form&, Aspect) override {}
  void showMusic();

  Form& form_;
  Uses uses_;
  Panel panel_;
};

}  // namespace korvane
