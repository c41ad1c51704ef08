// frmKeyboard: asks for one line with keys on the screen. A hardware keyboard works at the same
// time.
#pragma once

#include "core/prompt.h"
#include "custom/key_logic.h"

namespace korvane {

class KeyboardForm : public LinePrompt {
 public:
  KeyboardForm(FormHost& host, const Palette& palette);

  // Of the same keys as the US keyboard; shown from the next question on.
  void setLayout(const KeyboardLayout& layout);

  // A second question while one is on screen is cancelled at once. Yields.
  void ask(QString& text, bool password) override;

  Form& form() { return form_; }

 private:
  struct Panel {
    Frame* framKeyBoard;
    Label* lblMsg;
    TextBox* txtInput;
    Button* cmdCancel;
    Timer* RepeatTimer;
    explicit Panel(Form& form);
  };

  void KEY_Click(int index);
  void KEY_Press(int index);
  void RepeatTimer_Timer();
  void Form_KeyDown(int keyCode);
  void Form_KeyPress(const QString& text);
  void cmdcancel_Click();

  void press(int code);
  void VARIANT_Click(int index);
  void showVariants(const Key& key);
  void hideVariants();
  void take(const KeyState& state);
  void showKeys();
  void applyColours();

  FormHost& host_;
  const Palette& palette_;
  KeyboardLayout layout_ = usKeyboard();
  Form form_;
  Panel panel_;
  KeyState state_;
  bool cancelled_ = true;
  int heldCode_ = 0;       // the key under the finger
  bool repeated_ = false;  // it has acted while held, so its release is no press
};

}  // namespace korvane
