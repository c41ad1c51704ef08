// The Music tab.
#pragma once

#include "core/tab.h"
#include "core/tab_parts.h"
#include "library/lists/playlist_editor.h"
#include "listener/music_connection.h"
#include "playback/transport.h"

namespace korvane {

class MusicTab : public Tab {
 public:
  MusicTab(TabParts& parts, Browsing& browsing, PlaylistEditor& editor, Transport& transport,
           MusicConnection& connection, MediaPlayer& player);

  void leave() override;
  void enter() override;
  void pressTransport(int index) override { transport_.pressMusic(index); }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Image* mute = bind("mute");
    PictureArea* coverArt = bind("coverArt");
    std::array<Image*, 8> cmdControls = bind("cmdControls");
    Label* lblCurrentPlay = bind("lblCurrentPlay");
    Label* TxtTime = bind("TxtTime");
    Slider* Slider1 = bind("Slider1");
  };

  void showStatus();
  void showLists();
  void firstVisit();
  void askListener();

  TabParts& parts_;
  Panel panel_;
  Browsing& browsing_;
  PlaylistEditor& editor_;
  Transport& transport_;
  MusicConnection& connection_;
  MediaPlayer& player_;
  ControlSet favourite_, types_, roles_, modes_, cover_;
};

}  // namespace korvane
