// Keys that type into a text box of any form: what frmKeyboard and ctrlKeyboard have in common.
#pragma once

#include "custom/keyboard/key_logic.h"
#include "custom/keyboard/key_pad.h"

namespace korvane {

class TextKeyboard : private KeyPadOwner {
 public:
  // The form and the palette must outlive the keyboard.
  TextKeyboard(Form& form, const Palette& palette, KeyPad::Place place)
      : pad_(form, palette, std::move(place), *this) {}

  void setLayout(KeyboardLayout layout) { pad_.setLayout(std::move(layout)); }

  // Types into `target` from now on; it must live until close().
  void open(TextBox& target);
  void close();
  TextBox* target() const { return target_; }  // null while closed

  // As a press on the key; the target's form hears Change when the text is another one.
  void press(int code);

  std::function<void()> accepted;   // Enter
  std::function<void()> hideAsked;  // the key Hide

 private:
  void keyPressed(int code) override { press(code); }
  void variantPicked(const QString& character) override;
  KeyState read();
  void take(const KeyState& state);

  KeyPad pad_;
  TextBox* target_ = nullptr;
  KeyState state_;
};

}  // namespace korvane
