// What every modal form has in common: it is dressed in the theme's colours whenever it opens,
// Enter and Escape press the buttons that its inventory names for them, and a press on a text box
// may ask for its text.
#pragma once

#include "core/palette.h"
#include "core/prompt.h"

namespace korvane {

struct DialogUses {
  FormHost& host;
  const Palette& palette;
  Messages& messages;
};

class Dialog {
 public:
  Form& form() { return form_; }

 protected:
  // `rows` are read here alone.
  Dialog(const DialogUses& uses, QString name, std::span<const InventoryRow> rows,
         Rect design = {0, 0, 1280, 768});
  ~Dialog() = default;
  Dialog(const Dialog&) = delete;

  // Dresses the form, runs `load`, which may change that, and shows the form until it is hidden.
  // False, and nothing is done, while it is on the screen already. Yields.
  bool run(const std::function<void()>& load = [] {});
  void leave();  // hides the form

  // Clicks on a control, or on any member of an array.
  void onClick(QStringView control, std::function<void(int index)> handler);

  // Asks for a line and puts it into the box; an empty answer leaves the box as it is. Yields.
  void askInto(TextBox& box, const QString& prompt);

  const DialogUses dialog_;
  Form form_;

 private:
  void Form_KeyDown(int key);
};

}  // namespace korvane
