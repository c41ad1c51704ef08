// ctrlKeyboard: a keyboard in a frame of a form, which types into a text box that it is told about.
#pragma once

#include "custom/keyboard/text_keyboard.h"

namespace korvane {

class CtrlKeyboard {
 public:
  CtrlKeyboard(Form& form, const Palette& palette);

  void setLayout(const KeyboardLayout& layout) { keys_.setLayout(controlKeyboard(layout)); }

  void showFor(TextBox& target);
  void hide();
  bool shown() const { return keys_.target(); }
  int top() const { return shown() ? frame_.rect().top : 0; }  // on the form; 0 when hidden

  std::function<void(bool)> shownChanged;  // told true when it comes up and false when it goes

 private:
  Frame& frame_;
  TextKeyboard keys_;
};

}  // namespace korvane
