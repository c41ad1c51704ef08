// Which player a finger means: the transport's buttons and the position slider go to it, and so do
// volume and mute. News of a player never comes this way.
#pragma once

#include "core/form/panel.h"
#include "core/player.h"
#include "core/screen.h"
#include "core/settings.h"
#include "core/tab_controller.h"

namespace korvane {

class Players {
 public:
  struct Uses {
    Form& form;
    AppState& state;
    const Settings& settings;
    Screen& screen;
    TabController& tabs;
    Pump& pump;
  };
  explicit Players(Uses uses);

  // Each that sounds once, before the first press. Not owned. What is heard is looked for in this
  // order.
  void add(Player& player) { players_.push_back(&player); }

  // The one of the open tab; by key FollowSound the one that is heard, whichever tab is open. Null
  // where there is none. Never a silent one.
  Player* meant() const;
  // The one that plays, else one that is paused and can go on; of several the one that started
  // last. Null for none.
  Player* heard() const;

  // That player is about to play: what else plays or is paused stops, so that two never sound
  // together. Yields.
  void starts(Player& player);
  // Whether what that player reports may be shown on the status line and the slider, which all
  // share: nothing else is heard.
  bool shows(const Player& player) const;

  // Of a silent one that the open tab has, else of the one that is meant. Yields.
  void cmdControls_Click(TransportButton button);
  void press(Player& player, TransportButton button);  // refused while a press is at work. Yields.

  void Slider1_Press();
  void Slider1_Scroll();
  void Slider1_Release();  // Yields.

 private:
  Player* silent() const;  // of the open tab
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Slider* Slider1 = bind("Slider1");
  };

  Uses uses_;
  Panel panel_;
  std::vector<Player*> players_;
  Player* started_ = nullptr;  // last
  Player* moved_ = nullptr;    // by the thumb that a finger holds
};

}  // namespace korvane
