// A press on the cover lays it over the list; the next one puts it back.
#pragma once

#include "core/form/panel.h"
#include "library/lists/browsing.h"

namespace korvane {

class CoverView {
 public:
  CoverView(Form& form, const Browsing& browsing) : browsing_(browsing), panel_(form) {}

  void coverArt_Click();
  void shrink();  // to its own place; nothing when it is there

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    PictureArea* coverArt = bind("coverArt");
  };

  const Browsing& browsing_;
  Panel panel_;
  std::optional<Rect> before_;  // its own place, while it is large
};

}  // namespace korvane
