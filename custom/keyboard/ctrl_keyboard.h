// ctrlKeyboard: a keyboard in a frame of a form, which types into a text box that it is given.
#pragma once

#include "custom/keyboard/text_keyboard.h"

namespace korvane {

class CtrlKeyboard {
 public:
  // The form has the frame ctrlKeyboard with KEY(0), VARIANT(0) and BUBBLE(0), and KeyRepeatTimer;
  // it must outlive the keyboard.
  CtrlKeyboard(Form& form, const Palette& palette);

  void setLayout(const KeyboardLayout& layout) { keys_.setLayout(controlKeyboard(layout)); }

  void showFor(TextBox& target);  // `target` must live until another comes or the keyboard goes
  void hide();                    // nothing when it is hidden
  bool shown() const { return keys_.target(); }
  int top() const { return shown() ? frame_.rect().top : 0; }  // on the form; 0 when hidden

  std::function<void(bool)> shownChanged;  // true when it comes up, false when it goes

 private:
  Frame& frame_;
  TextKeyboard keys_;
};

}  // namespace korvane
