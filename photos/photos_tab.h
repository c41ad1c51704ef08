// The Photos tab: the picture list and the slide show's place.
#pragma once

#include "core/keep_awake.h"
#include "core/tab.h"
#include "core/tab_parts.h"
#include "photos/photo_album.h"
#include "photos/slide_show.h"

namespace korvane {

class PhotosTab : public Tab {
 public:
  struct Uses {
    TabParts& parts;
    System& system;
    KeepAwake& awake;
    PhotoAlbum& album;
    SlideShow& show;
  };
  explicit PhotosTab(Uses uses);

  void leave() override;
  void enter() override;
  Player* player() override;  // the show, while there is one
  Grid* list() override;

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Grid* PhotoList = bind("PhotoList");
    Slider* scrollDelay = bind("scrollDelay");
    Image* cmdContinue = bind("cmdControls", 7);
  };

  void showDelay();

  Uses uses_;
  TabParts& parts_;
  Panel panel_;
  ControlSet page_, delay_, otherPlay_, fullScreen_, movies_;
};

}  // namespace korvane
