// The colour dialog: hues, their tints and shades, sixteen greys, and the number itself.
#pragma once

#include "core/form/panel.h"
#include "core/palette.h"
#include "core/prompt.h"

namespace korvane {

class ColourChooser {
 public:
  ColourChooser(FormHost& host, const Palette& palette, Messages& messages);

  // The colour that was confirmed, beginning with `current`; nothing when cancelled. Yields.
  std::optional<Colour> choose(Colour current, const QString& element);

  Form& form() { return form_; }

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    Label* lblNumber = bind("lblNumber");
    Frame* before = bind("before");
    Frame* after = bind("after");
    TextBox* txtNumber = bind("txtNumber");
    Button* cmdCancel = bind("cmdCancel");
    Button* cmdOK = bind("cmdOK");
  };

  void show(Colour colour);
  void txtNumber_Click();

  FormHost& host_;
  const Palette& palette_;
  Messages& messages_;
  Form form_;
  Panel panel_;
  Colour chosen_ = 0;
  bool confirmed_ = false;
};

// Hue in degrees, saturation and lightness 0 to 1.
Colour colourOfHsl(double hue, double saturation, double lightness);

// "16711680" as stored, or "#RRGGBB"; nothing for any other text.
std::optional<Colour> colourOfText(const QString& text);

}  // namespace korvane
