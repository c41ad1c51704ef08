// frmSetupGeneral: "General Options", a sub-page of frmGuiSetup, which loads and saves it.
#pragma once

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
  struct Panel {
    Label *lblTitle, *lblPw, *lblFont, *lblHeight, *lblPage;
    TextBox *txtsetuppw, *txtGridFontSize, *txtGridHeight, *txtMainPage;
    Button *cmdSetuppw, *cmdKeyboardLayout, *cmdOK;
    std::array<Check*, 14> chkGeneral;
    explicit Panel(Form& form);
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
