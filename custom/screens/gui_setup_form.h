// frmGuiSetup: the advanced page of setup. Nothing is stored before Save.
#pragma once

#include "core/screen_doors.h"
#include "custom/screens/gui_setup_fields.h"
#include "custom/screens/nic_form.h"
#include "custom/screens/setup_general_form.h"

namespace korvane {

class GuiSetupForm : public Dialog {
 public:
  // The uses of its sub-page are its own too.
  explicit GuiSetupForm(const SetupGeneralForm::Uses& uses);

  // Which buttons lead somewhere: cmdMulti, cmdColor, cmdCamera, cmdSync, cmdExportFavoriates(0,
  // 1).
  void setDoors(const ScreenDoors& doors) { doors_ = &doors; }  // not owned; read at each opening
  void setDoors(ScreenDoors&&) = delete;

  void open();                   // Yields.
  void chooseNic(NicForm& nic);  // into txtNIC. Yields.

  SetupGeneralForm& general() { return general_; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    std::array<Button*, 5> cmdPage = bind("cmdPage");
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

  struct Field {
    const SetupText& text;
    TextBox* box;
  };

  void handlers();
  void Form_Load();
  void cmdPage_Click(int index);
  void cmdCmd_Click(int index);
  void showDoors();

  // False when it is refused or something cannot be stored, which is said. Yields.
  bool save();
  // The texts from the first control of that name to the last one of the other.
  void saveTexts(SettingsToSave& settings, const char* first, const char* last);
  void applyMasterListener();
  void saveListeners(SettingsToSave& settings);
  void saveX10(SettingsToSave& settings);
  void saveMaps(SettingsToSave& settings);

  SetupGeneralForm::Uses uses_;
  SetupGeneralForm general_;
  Panel panel_;
  SetupFrames frames_;
  std::vector<Field> fields_;  // as setupTexts()
  Image& pCamera_;             // of the main form
  static inline const ScreenDoors kNone{};
  const ScreenDoors* doors_ = &kNone;
};

}  // namespace korvane
