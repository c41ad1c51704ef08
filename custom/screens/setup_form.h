// frmSetup: the entry of setup, with the themes, the directories and the maintenance.
#pragma once

#include "core/add_timer.h"
#include "core/dialog.h"
#include "core/form/panel.h"
#include "core/graphics.h"
#include "core/screen_doors.h"
#include "core/settings.h"
#include "custom/screens/setup_parts.h"
#include "platform/machine.h"

namespace korvane {

class SetupForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    AppState& state;
    Settings& settings;
    FileSystem& files;
    const Graphics& graphics;
    SystemBox& box;
    AddTimer& addTimer;  // rests while setup is open
    SetupParts& parts;
  };
  explicit SetupForm(const Uses& uses);

  // Which buttons lead somewhere: cmdAddDir(0 to 5), cmdPlayLists, cmdButtons, cmdMoveControls,
  // cmdOther, cmdListener, cmdFtp.
  void setDoors(const ScreenDoors& doors) { doors_ = &doors; }  // not owned; read at each opening
  void setDoors(ScreenDoors&&) = delete;

  void open();               // Yields.
  void close() { leave(); }  // for a door that leaves setup

  bool reloadRequested = false;  // another theme: the main form is to be loaded again

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblPhoto = bind("lblPhoto");
    Label* Label2 = bind("Label2");
    Label* lblStat = bind("lblStat");
    Grid* LstThemes = bind("LstThemes");
    std::array<Button*, 6> cmdAddDir = bind("cmdAddDir");
    Button* cmdPlayLists = bind("cmdPlayLists");
    Button* cmdButtons = bind("cmdButtons");
    Button* cmdMoveControls = bind("cmdMoveControls");
    Button* cmdOther = bind("cmdOther");
    Button* cmdListener = bind("cmdListener");
    Button* cmdFtp = bind("cmdFtp");
    std::vector<Control*> doors() const;
  };

  void Form_Load();
  void Form_Activate();
  void Form_QueryUnload();
  void cmdThemes_Click();  // stays open, in the theme that there was, when it cannot be stored
  void cmdErase_Click();
  void cmdOK_Click();

  void showDoors();
  void fillThemes();

  Uses uses_;
  Panel panel_;
  static inline const ScreenDoors kNone{};
  const ScreenDoors* doors_ = &kNone;
  QString mainPageBefore_;
};

}  // namespace korvane
