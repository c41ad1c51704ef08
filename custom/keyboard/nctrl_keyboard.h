// NctrlKeyboard: a keyboard in a frame of a form, which sends keys to a control of that form as a
// hardware keyboard would.
#pragma once

#include "custom/keyboard/key_pad.h"

namespace korvane {

class NctrlKeyboard : private KeyPadOwner {
 public:
  // The form has the frame `name` and in it, hidden, ekey(0), ebubble(0), evariant(0) and BtnEnh1;
  // and the timer ekeyTimer.
  NctrlKeyboard(Form& parent, const QString& name, FormHost& host, const Palette& palette);

  void setLayout(const KeyboardLayout& layout) { pad_.setLayout(sendingKeyboard(layout)); }

  // Comes up and sends to `target`, or to another text box of the form that has taken the focus
  // since: by Tab or by a finger.
  void showFor(Control& target);
  void hide();  // nothing when it is hidden
  bool shown() const { return frame_.visible(); }

  // The parent's part: true when it has come up, false when BtnEnh1 or hide() hid it.
  std::function<void(bool)> shownChanged;

 private:
  void keyPressed(int code) override;  // Yields.
  void variantPicked(const QString& character) override;
  bool focusTarget();
  void type(const QString& character);
  void SendKeys(const QString& keys);

  Form& parent_;
  FormHost& host_;
  Frame& frame_;
  KeyPad pad_;
  Control* target_ = nullptr;
  bool capsLock_ = false, shiftOnce_ = false;
};

}  // namespace korvane
