// frmGuiSetup: the advanced page of setup. Nothing is stored before Save.
#pragma once

#include "core/form/panel.h"
#include "core/screen_doors.h"
#include "custom/screens/gui_setup_fields.h"
#include "custom/screens/nic_form.h"
#include "custom/screens/setup_general_form.h"

namespace korvane {

class GuiSetupForm {
 public:
  // The uses of its sub-page are its own too.
  explicit GuiSetupForm(SetupGeneralForm::Uses uses);

  // Which buttons lead somewhere: cmdMulti, cmdColor, cmdCamera, cmdSync, cmdExportFavoriates(0,
  // 1).
  void setDoors(const ScreenDoors& doors) { doors_ = &doors; }  // not owned; read at each opening
  void setDoors(ScreenDoors&&) = delete;

  void open();                   // Yields.
  void chooseNic(NicForm& nic);  // into txtNIC. Yields.

  Form& form() { return form_; }
  SetupGeneralForm& general() { return general_; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    std::array<Button*, 2> cmdCmd = bind("cmdCmd");
    std::array<Button*, 5> cmdPage = bind("cmdPage");
    Button* cmdGeneral = bind("cmdGeneral");
    Button* cmdColor = bind("cmdColor");
    Button* cmdSync = bind("cmdSync");
    Button* cmdMulti = bind("cmdMulti");
    Button* cmdCamera = bind("cmdCamera");
    std::array<Button*, 2> cmdExportFavoriates = bind("cmdExportFavoriates");
    std::array<Check*, 2> optIntListen = bind("optIntListen");
    std::array<Check*, 2> optIntListenM = bind("optIntListenM");
    std::array<Check*, 2> optControls = bind("optControls");
    TextBox* txtNIC = bind("txtNIC");
    Check* chkShowX10 = bind("chkShowX10");
    Check* ckRadio = bind("ckRadio");
    Check* chkMap = bind("chkMap");
    Check* chkCamera = bind("chkCamera");
  };

  void captions();
  void handlers();
  void Form_Load();
  void cmdPage_Click(int index);
  void cmdCmd_Click(int index);
  void askInto(const SetupText& text);
  void showDoors();

  bool save();  // false when refused. Yields.
  void saveTexts(const char* first, const char* last);
  void applyMasterListener();
  void saveListeners();
  void saveX10();
  void saveMaps();
  TextBox& box(const SetupText& text);
  void write(const SettingKey& key, const char* value);

  SetupGeneralForm::Uses uses_;
  SetupGeneralForm general_;
  Form form_;
  Panel panel_;
  static inline const ScreenDoors kNone{};
  const ScreenDoors* doors_ = &kNone;
};

}  // namespace korvane
