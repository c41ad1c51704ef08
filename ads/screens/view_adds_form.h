// frmViewAdds: the ads over the whole screen, one after another, and a black screen where none
// shows at that time. The next one is decoded while one stands, so that the change never waits.
#pragma once

#include "ads/ad_log.h"
#include "ads/ads_state.h"
#include "core/dialog.h"
#include "core/form/panel.h"
#include "core/screen.h"
#include "photos/picture_loader.h"

namespace korvane {

class ViewAddsForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    AdsState& ads;
    const Settings& settings;
    Screen& screen;
    const Form& frmMain;  // which has the same place on the screen
    PictureLoader::Uses loading;
    AdLog& log;
    std::function<bool()> plays;  // something does: the show ends
  };
  explicit ViewAddsForm(Uses uses);

  void open();  // until it is left. Yields.
  void leave() { Dialog::leave(); }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    PictureArea* picTransition = bind("picTransition");
    Frame* imageframe = bind("imageframe");
    Timer* pictimer = bind("pictimer");
  };
  struct Decoded {
    QString path;
    std::shared_ptr<const Pixels> pixels;  // null while it is being decoded, and for a bad file
    bool done = false;
  };

  void Form_Load();
  void Form_Unload();
  void pictimer_Timer();
  void loadapic();
  void showBlack();
  void put();
  void decode(const QString& path);
  void decodeAhead();
  void shift();

  Uses uses_;
  Panel panel_;
  PictureLoader loader_;
  QString wanted_, wantedName_, shown_;  // paths, and a name; empty for a black screen
  Decoded next_;
  int adSeconds_ = 0, count_ = 0, seconds_ = 0;
};

}  // namespace korvane
