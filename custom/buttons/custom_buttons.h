// The owner's buttons: the array cmdbutton, whose member 0 is the pattern of the others, kept per
// theme in "Buttonpositons.txt" (custom/buttons/button_file.h).
#pragma once

#include <map>

#include "core/button_words.h"
#include "core/graphics.h"
#include "core/log.h"
#include "core/palette.h"
#include "core/screen.h"
#include "custom/buttons/button_file.h"
#include "platform/programs.h"

namespace korvane {

class CustomButtons {
 public:
  struct Uses {
    const Graphics& graphics;
    const Palette& palette;
    FileSystem& files;
    const Log& log;
    Screen& screen;
    Programs& programs;
    const ButtonWords& words;
  };
  // The form has cmdbutton(0) and ButtonTimer. It and what is used must outlive this.
  CustomButtons(Form& form, Uses uses);

  // A program has taken the screen, and the last one that did has ended.
  std::function<void()> programShown = [] {}, programsEnded = [] {};
  std::function<bool()> admits = [] { return true; };  // whether a program may be started

  void loadCustomButtons();  // those of the active theme in the place of all others
  void show() const;         // each whose caption is not empty
  void hide() const;

  // Does the word of its Tag, or starts the program there; a failed start is logged alone. Yields.
  void cmdbutton_Click(int index);
  void ButtonTimer_Timer();

  // For the editor. Members 1 to count() are the owner's.
  int count() const { return static_cast<int>(stored_.size()) - 1; }
  Button& button(int index) const;
  Button* add(Rect onDesign);  // null when there are as many as the file may hold
  void setAction(Button& button, const QString& action) const;
  void setFontSize(Button& button, float size);
  float fontSize(const Button& button) const { return entry(button.index).stored.fontSize; }
  // All but those whose Tag is "DELETE", with the lines that could not be read. False, with `error`
  // in words, leaves the file as it was.
  bool save(QString* error);

 private:
  struct Entry {
    CustomButton stored;  // as the file has it
    Rect placed;          // and where that is on the design surface
  };
  QString path() const;
  Colours palette() const;
  Button& loaded(int index);
  void fill(int index, const CustomButton& from);
  void startProgram(const QString& action);
  const Entry& entry(int index) const { return stored_[static_cast<size_t>(index)]; }

  Form& form_;
  Uses uses_;
  Timer* buttonTimer_;
  std::vector<Entry> stored_;     // by index; 0 the pattern
  QByteArrayList unread_;         // lines that a save keeps
  bool readable_ = true;          // the file is missing or was read
  std::map<QString, int> tasks_;  // of the programs started here, by path
};

}  // namespace korvane
