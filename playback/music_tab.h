// The Music tab.
#pragma once

#include "core/tab.h"
#include "core/tab_parts.h"
#include "library/lists/playlist_editor.h"
#include "listener/music_connection.h"
#include "playback/cd_player.h"
#include "playback/cover_view.h"

namespace korvane {

class MusicTab : public Tab {
 public:
  struct Uses {
    TabParts& parts;
    Browsing& browsing;
    PlaylistEditor& editor;
    Transport& transport;
    CdPlayer& disc;
    CoverView& cover;
    MusicConnection& connection;
    MediaPlayer& player;
    const Players& players;
  };
  explicit MusicTab(Uses uses);

  void leave() override;
  void enter() override;
  Player* player() override { return &music(); }
  Grid* list() override { return &uses_.browsing.shownGrid(); }

  Player& music() const;  // the disc while its sound is the source, else the transport

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Image* mute = bind("mute");
    PictureArea* coverArt = bind("coverArt");
    Image* previous = bind("cmdControls", static_cast<int>(TransportButton::Previous));
    Image* continueOn = bind("cmdControls", static_cast<int>(TransportButton::Continue));
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* TxtTime = bind("TxtTime");
    Slider* Slider1 = bind("Slider1");
  };

  void showStatus();
  void showLists();
  void firstVisit();
  void askListener();

  Uses uses_;
  TabParts& parts_;
  Panel panel_;
  ControlSet favourite_, types_, roles_, modes_, cover_;
};

}  // namespace korvane
