// frameButtons: the tools with which the owner makes, names, moves and removes buttons of the Main
// tab. While they are up, a button follows the finger and its click does nothing.
#pragma once

#include "core/form/panel.h"
#include "core/prompt.h"
#include "custom/buttons/custom_buttons.h"

namespace korvane {

class ButtonEditor {
 public:
  struct Uses {
    CustomButtons& buttons;
    Messages& messages;
  };
  ButtonEditor(Form& form, Uses uses);  // all must outlive it

  // Set by the console: the keyboard that comes up for a box, or goes (null); who hears that the
  // tools come and go; and the choice of an action, nothing when it was cancelled (Yields).
  std::function<void(TextBox*)> showKeyboard = [](TextBox*) {};
  std::function<void(bool)> editing = [](bool) {};
  std::function<std::optional<QString>()> chooseAction = [] { return std::nullopt; };

  void open();  // on the Main tab, with its buttons shown
  bool isOpen() const { return panel_.frameButtons->visible(); }

  void cmdbutton_MouseDown(int index);
  void cmdbutton_MouseUp(int index);
  void frameButtons_MouseUp();
  void cmdButtonAdd_Click();
  void cmdButtonLabel_Click();      // Yields.
  void cmdButtonAction_Click();     // Yields.
  void cmdButtonApplyAttr_Click();  // the size and font typed, within their limits. Yields.
  void cmdButtonKeyboard_Click();
  void cmdButtonDel_Click();
  void cmdButtonDone_Click();    // saves; what cannot be saved is said, and the tools stay. Yields.
  void cmdButtonCancel_Click();  // the buttons are those of the file again
  void txtButton_Click(TextBox& box);

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Frame* frameButtons = bind("frameButtons");
    Frame* frameHome = bind("frameHome");
    TextBox* txtButtonWide = bind("txtButtonWide");
    TextBox* txtButtonHigh = bind("txtButtonHigh");
    TextBox* txtButtonFontSize = bind("txtButtonFontSize");
  };

  void choose(int index);
  void close();
  bool chosenIsPattern();  // and says what it is for
  Button& chosen() const { return uses_.buttons.button(chosen_); }
  Rect freePlace() const;

  Form& form_;
  Uses uses_;
  Panel panel_;
  TextBox* typedInto_ = nullptr;
  int chosen_ = 0;
};

}  // namespace korvane
