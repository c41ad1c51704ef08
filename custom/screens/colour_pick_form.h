// frmColorPick: the colours of the theme, element by element. A colour is stored as it is chosen.
#pragma once

#include "core/settings.h"
#include "custom/screens/colour_chooser.h"

namespace korvane {

class ColourPickForm {
 public:
  struct Uses {
    FormHost& host;
    const Palette& palette;
    Settings& settings;
    Messages& messages;
  };
  explicit ColourPickForm(Uses uses);

  void open();       // Yields.
  void PicAColor();  // for the active box: its colour from the dialog. Yields.

  Form& form() { return form_; }
  ColourChooser& chooser() { return chooser_; }

 private:
  void describe();
  void Form_Load();
  void TS_Click(int index);
  TextBox& box(int index);

  Uses uses_;
  ColourChooser chooser_;
  Form form_;
};

}  // namespace korvane
