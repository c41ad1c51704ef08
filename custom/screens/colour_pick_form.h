// frmColorPick: the colours of the theme, element by element. A colour is stored as it is chosen.
#pragma once

#include "core/settings.h"
#include "custom/screens/colour_chooser.h"

namespace korvane {

class ColourPickForm : public Dialog {
 public:
  struct Uses {
    DialogUses dialog;
    Settings& settings;
  };
  explicit ColourPickForm(const Uses& uses);

  void open();  // Yields.
  // For the active box: its colour from the dialog. One that cannot be stored is not taken, and a
  // message says why. Yields.
  void PicAColor();

  ColourChooser& chooser() { return chooser_; }

 private:
  struct Swatch {
    TextBox* box;  // its Tag is the element
    Label* label;
  };
  struct Page {
    Button* tab;
    Frame* frame;
  };

  void bindPages();
  void Form_Load();
  void TS_Click(int index);

  Settings& settings_;
  ColourChooser chooser_;
  std::vector<Page> pages_;
  std::vector<Swatch> swatches_;  // by the index of their controls
};

}  // namespace korvane
