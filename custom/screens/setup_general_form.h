// frmSetupGeneral: "General Options", a sub-page of frmGuiSetup, which loads and saves it.
#pragma once

#include "core/form/panel.h"
#include "core/prompt.h"
#include "core/settings.h"
#include "custom/screens/setup_parts.h"

namespace korvane {

class SetupGeneralForm {
 public:
  struct Uses {
    FormHost& host;
    const Palette& palette;
    AppState& state;
    Settings& settings;
    Messages& messages;
    Form& main;  // frmMain, whose lists take the new look at once
    SetupParts& parts;
  };
  explicit SetupGeneralForm(Uses uses);

  void load();  // from the settings into the controls
  void save();  // boxes, grid numbers, main page. Yields.
  void open();  // Yields.

  Form& form() { return form_; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    Label* lblPw = bind("lblPw");
    Label* lblFont = bind("lblFont");
    Label* lblHeight = bind("lblHeight");
    Label* lblPage = bind("lblPage");
    TextBox* txtsetuppw = bind("txtsetuppw");
    TextBox* txtGridFontSize = bind("txtGridFontSize");
    TextBox* txtGridHeight = bind("txtGridHeight");
    TextBox* txtMainPage = bind("txtMainPage");
    Button* cmdSetuppw = bind("cmdSetuppw");
    Button* cmdKeyboardLayout = bind("cmdKeyboardLayout");
    Button* cmdOK = bind("cmdOK");
    std::array<Check*, 14> chkGeneral = bind("chkGeneral");
  };

  void askInto(TextBox& box, const QString& prompt);
  void cmdSetuppw_Click();
  void cmdKeyboardLayout_Click();
  void saveGrid();
  void saveMainPage();

  Uses uses_;
  Form form_;
  Panel panel_;
};

// The number a grid field stands for: not numeric gives `unusable`, outside the key's limits 19.
int gridNumber(const QString& text, const SettingKey& key, int unusable);

}  // namespace korvane
