#include "custom/keyboard/text_keyboard.h"

namespace korvane {

void TextKeyboard::open(TextBox& target) {
  target_ = &target;
  state_ = KeyState();
  pad_.open();
}

void TextKeyboard::close() {
  target_ = nullptr;
  pad_.close();
}

// A hardware keyboard may have typed.
KeyState TextKeyboard::read() {
  state_.text = target_->text();
  state_.selStart = target_->selStart();
  return state_;
}

void TextKeyboard::press(int code) {
  if (!target_) return;
  if (code == scan::Hide) {
    if (hideAsked) hideAsked();
    return;
  }
  const auto [state, done] = pressKey(pad_.layout(), code, read());
  take(state);
  if (done && accepted) accepted();
}

void TextKeyboard::variantPicked(const QString& character) {
  if (target_) take(typeCharacter(character, read()));
}

void TextKeyboard::take(const KeyState& state) {
  const bool edited = state.text != target_->text();
  state_ = state;
  target_->text = state.text;
  target_->selStart = state.selStart;
  pad_.showShifts(state.capsLock, state.shiftOnce);
  target_->form.setFocus(target_);
  if (edited) target_->form.fire(*target_, {Event::Change});
}

}  // namespace korvane
