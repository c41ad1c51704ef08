// The keyboard of the button tools: what types into their text boxes on a screen without keys.
#pragma once

#include "core/prompt.h"

namespace korvane {

class ButtonKeyboard {
 public:
  virtual ~ButtonKeyboard() = default;
  virtual void showKeyboardFor(TextBox& target) = 0;  // Yields.
  virtual void hideKeyboard() {}                      // the tools go
};

// The keyboard that asks for one line.
class PromptKeyboard : public ButtonKeyboard {
 public:
  explicit PromptKeyboard(Messages& messages) : messages_(messages) {}
  void showKeyboardFor(TextBox& target) override {
    const QString typed = messages_.ask(target.spokenName);
    if (!typed.isEmpty()) target.text = typed;
  }

 private:
  Messages& messages_;
};

}  // namespace korvane
