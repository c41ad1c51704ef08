// Counts the idle seconds and brings the ads, and without ads a black screen. While something
// plays, a modal form is up, a press is at work or the console is out of sight, nothing comes.
#pragma once

#include "ads/screens/view_adds_form.h"
#include "core/add_timer.h"

namespace korvane {

class IdleWatch {
 public:
  struct Uses {
    Form& frmMain;
    const AppState& state;
    AdsState& ads;
    const Settings& settings;
    const Clock& clock;
    FormHost& host;
    const Screen& screen;
    AddTimer& addTimer;
    ViewAddsForm& view;
    std::function<bool()> plays;  // music, a movie or a show
  };
  explicit IdleWatch(Uses uses);

  void start();  // the wait for the black screen, by key AdBlack

  void AddTimer_Timer();        // a second of AddTimer. Yields while the ads show.
  void addsResetTimer_Timer();  // the buttons have changed
  void BlackTimer_Timer();      // Yields while the screen is black.

  // A finger or button came down or went. True when it has only woken the screen and is meant for
  // nothing else (key AdWake).
  bool touched();

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Timer* addsResetTimer = bind("addsResetTimer");
    Timer* BlackTimer = bind("BlackTimer");
  };

  bool holds() const;
  bool adsDue() const;
  void show();
  void look();
  void waitForBlack(qint64 milliseconds);

  Uses uses_;
  Panel panel_;
  bool left_ = false, right_ = false;  // as they were before
  qint64 lastUse_;                     // monotonic ms, for the black screen
};

}  // namespace korvane
