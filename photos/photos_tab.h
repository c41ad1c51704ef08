// The Photos tab: the picture list and the slide show's place.
#pragma once

#include "core/keep_awake.h"
#include "core/prompt.h"
#include "core/tab.h"
#include "core/tab_controller.h"
#include "core/tab_parts.h"
#include "platform/system.h"

namespace korvane {

class PhotosTab : public Tab {
 public:
  PhotosTab(TabParts& parts, System& system, Messages& messages, KeepAwake& awake);

  void leave() override;
  void enter() override;
  Grid* list() override;

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Grid* PhotoList = bind("PhotoList");
    Slider* scrollDelay = bind("scrollDelay");
    Timer* pictimer = bind("pictimer");
    Image* cmdContinue = bind("cmdControls", 7);
  };

  void lookForDirectory();
  void showDelay();

  TabParts& parts_;
  Panel panel_;
  System& system_;
  Messages& messages_;
  KeepAwake& awake_;
  ControlSet page_, show_, otherPlay_, fullScreen_, movies_;
  bool warned_ = false;  // that there is no directory, in this run
};

}  // namespace korvane
