// frmKeyboard: asks for one line with keys on the screen. A hardware keyboard works at the same
// time.
#pragma once

#include "core/prompt.h"
#include "custom/text_keyboard.h"

namespace korvane {

class KeyboardForm : public LinePrompt {
 public:
  KeyboardForm(FormHost& host, const Palette& palette);

  void setLayout(const KeyboardLayout& layout) { keys_.setLayout(layout); }

  // A second question while one is on screen is cancelled at once. Yields.
  void ask(QString& text, bool password) override;

  Form& form() { return form_; }

 private:
  struct Panel {
    Label* lblMsg;
    TextBox* txtInput;
    Button* cmdCancel;
    explicit Panel(Form& form);
  };

  void Form_KeyDown(int keyCode);
  void Form_KeyPress(const QString& text);
  void cmdcancel_Click();
  void accept();
  void applyColours();

  FormHost& host_;
  const Palette& palette_;
  Form form_;
  Panel panel_;
  TextKeyboard keys_;
  bool cancelled_ = true;
};

}  // namespace korvane
