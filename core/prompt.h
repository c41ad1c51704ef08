// showMessage: every themed message and every one-line input.
#pragma once

#include "core/form/form.h"
#include "core/palette.h"

namespace korvane {

// Asks for one line; owned here, answered by the on-screen keyboard.
class LinePrompt {
 public:
  virtual ~LinePrompt() = default;
  // `text` comes in as the prompt and leaves as what was typed, empty when cancelled. Yields.
  virtual void ask(QString& text, bool password) = 0;
};

class Messages {
 public:
  enum Answer { Ok = 1, Yes = 6, No = 7 };
  virtual ~Messages() = default;

  // Shows `text` and waits. With `yesNo` the answer is Yes or No, else Ok. With `inputMode`, `text`
  // is a prompt and leaves as what was typed, empty when cancelled. Yields.
  virtual int showMessage(QString& text, bool yesNo = false, bool unused = false,
                          bool inputMode = false, bool password = false) = 0;

  int say(QString text) { return showMessage(text); }
  bool confirm(QString text) { return showMessage(text, true) == Yes; }
  QString ask(QString prompt, bool password = false) {
    showMessage(prompt, false, false, true, password);
    return prompt;
  }
};

// The messages of the running console: frmMsgBox and the keyboard. What is to be said while a box
// is up waits and is said behind it, and its caller goes on; a question that comes then is asked
// above it.
class ThemedMessages : public Messages {
 public:
  ThemedMessages(FormHost& host, const Palette& palette);
  ~ThemedMessages() override;
  int showMessage(QString& text, bool yesNo, bool unused, bool inputMode, bool password) override;
  void setLinePrompt(LinePrompt* prompt) { prompt_ = prompt; }  // not owned

 private:
  class Box;
  Box& freeBox();

  FormHost& host_;
  const Palette& palette_;
  std::vector<std::unique_ptr<Box>> boxes_;  // the further ones for questions above a question
  QStringList waiting_;
  LinePrompt* prompt_ = nullptr;
};

std::span<const InventoryRow> messageBoxInventory();  // frmMsgBox

}  // namespace korvane
