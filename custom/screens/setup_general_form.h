// frmSetupGeneral: "General Options", a sub-page of frmGuiSetup, which loads and saves it.
#pragma once

#include "core/dialog.h"
#include "core/form/panel.h"
#include "core/settings.h"
#include "custom/screens/setup_parts.h"

namespace korvane {

class SetupGeneralForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    AppState& state;
    Settings& settings;
    Form& main;  // frmMain, whose lists take the new look at once
    SetupParts& parts;
  };
  explicit SetupGeneralForm(const Uses& uses);

  void load();  // from the settings into the controls
  // Boxes, grid numbers, main page. What could not be stored changes nothing on the console either.
  // Yields.
  void save(SettingsToSave& settings);
  void open();  // Yields.

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    TextBox* txtsetuppw = bind("txtsetuppw");
    TextBox* txtGridFontSize = bind("txtGridFontSize");
    TextBox* txtGridHeight = bind("txtGridHeight");
    TextBox* txtMainPage = bind("txtMainPage");
    Button* cmdKeyboardLayout = bind("cmdKeyboardLayout");
    std::array<Check*, 14> chkGeneral = bind("chkGeneral");
  };

  void cmdSetuppw_Click();
  void cmdKeyboardLayout_Click();
  void showKeyboardLayout();
  void saveGrid(SettingsToSave& settings);
  void saveMainPage(SettingsToSave& settings);

  Uses uses_;
  Panel panel_;
  std::vector<Grid*> grids_;  // the lists of the main form
};

// The number a grid field stands for: not numeric gives `unusable`, outside the key's limits 19.
int gridNumber(const QString& text, const SettingKey& key, int unusable);

}  // namespace korvane
