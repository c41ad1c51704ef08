// frmAdds: whether ads show, after how many idle seconds, and for how long each.
#pragma once

#include "ads/ads_state.h"
#include "core/dialog.h"
#include "core/form/panel.h"

namespace korvane {

class AddsForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    AppState& state;
    AdsState& ads;
    Settings& settings;
    FileSystem& files;
    QString directory;  // of the ads; made when it is missing
    std::function<void()> setupAds;
  };
  explicit AddsForm(Uses uses);

  void open();  // Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Check* chkaddson = bind("chkaddson");
    Slider* seconds = bind("seconds");
    Slider* between = bind("between");
    Label* lblSeconds = bind("lblSeconds");
    Label* lblBetween = bind("lblBetween");
    Label* lblpath = bind("lblpath");
  };

  void Form_Load();
  void chkaddson_Click();
  void showValues();
  void cmdok_Click();  // what cannot be stored is said, and the form stays. Yields.

  Uses uses_;
  Panel panel_;
};

}  // namespace korvane
