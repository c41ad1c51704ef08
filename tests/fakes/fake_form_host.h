// Forms on no screen. What an owner does on a modal form is a script, which runs in showModal().
#pragma once

#include <deque>
#include <map>

#include "core/form/form.h"

namespace korvane {

class FakeFormHost : public FormHost {
 public:
  using Script = std::function<void(Form&)>;

  // The next time that form comes up. A form nobody has written a script for fails the test.
  void onModal(const QString& form, Script script) { scripts_[form].push_back(std::move(script)); }
  bool allDone() const;  // every script has run

  void show(Form& form) override;
  void showModal(Form& form) override;
  void hide(Form& form) override;
  void fadeOut(Form& form, int milliseconds) override;
  bool pressesTaken() const override { return modal_ > 0; }
  // Types into a text box at its caret, Backspace and Delete as well; other keys are only noted.
  bool sendKey(Form& form, int key, const QString& text) override;

  QStringList opened;  // names of the modal forms, in order
  QStringList sent;    // keys, "code text"

 private:
  std::map<QString, std::deque<Script>> scripts_;
  int modal_ = 0;  // forms that are up
};

// The vocabulary of a script. Each fails the test when the control is missing, and a press also
// when it cannot be pressed.
void press(Form& form, const QString& control, int index = -1);
QString textOf(Form& form, const QString& control, int index = -1);
void type(Form& form, const QString& control, const QString& text, int index = -1);
void tick(Form& form, const QString& control, bool on, int index = -1);
// Presses the row of a list whose first cell is `row`.
void tap(Form& form, const QString& list, const QString& row);
QStringList rows(Form& form, const QString& list);  // their first cells
void pressKey(Form& form, int code);                // of a hardware keyboard: 13 Enter, 27 Escape
bool canPress(Form& form, const QString& control, int index = -1);  // also what it lies in is shown

}  // namespace korvane
