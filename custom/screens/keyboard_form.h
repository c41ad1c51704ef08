// frmKeyboard: asks for one line with keys on the screen, or is a bare keyboard at the lower edge
// of the screen, for typing into a text box of another form. A hardware keyboard works at the same
// time.
#pragma once

#include "core/form/panel.h"
#include "core/prompt.h"
#include "custom/keyboard/text_keyboard.h"

namespace korvane {

class KeyboardForm : public LinePrompt, private FormObserver {
 public:
  KeyboardForm(FormHost& host, const Palette& palette);  // both must outlive it
  ~KeyboardForm() override;

  void setLayout(const KeyboardLayout& layout);

  // A second question while one is on screen is cancelled at once. Yields.
  void ask(QString& text, bool password) override;

  // The bare keyboard, which types into `target` until it is hidden: by its own key, or with the
  // modal form that `target` lies on.
  void typeInto(TextBox& target);

  Form& form() { return form_; }
  Form& bareForm() { return bare_; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblMsg = bind("lblMsg");
    TextBox* txtInput = bind("txtInput");
    Button* cmdCancel = bind("cmdCancel");
  };

  void Form_KeyDown(int keyCode);
  void Form_KeyPress(const QString& text);
  void cmdcancel_Click();
  void accept();
  void framKeyBoard_Move(int y);
  void controlChanged(Control&, Aspect) override {}
  void formChanged(Form& form, Aspect aspect) override;
  void applyColours();

  FormHost& host_;
  const Palette& palette_;
  Form form_;
  Panel panel_;
  TextKeyboard keys_;
  Form bare_;
  TextKeyboard bareKeys_;
  bool cancelled_ = true;
  std::optional<int>
      heldAt_;  // where the finger holds the frame of the bare keyboard, from its top
};

}  // namespace korvane
