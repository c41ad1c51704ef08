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

// The messages of the running console: frmMsgBox and the keyboard.
class ThemedMessages : public Messages {
 public:
  ThemedMessages(FormHost& host, const Palette& palette);
  int showMessage(QString& text, bool yesNo, bool unused, bool inputMode, bool password) override;
  void setLinePrompt(LinePrompt* prompt) { prompt_ = prompt; }  // not owned
  Form& box() { return form_; }

 private:
  void cmdControls_Click(int index);

  FormHost& host_;
  const Palette& palette_;
  Form form_;
  LinePrompt* prompt_ = nullptr;
  int result_ = Ok;
};

}  // namespace korvane
