// The colour dialog: hues, their tints and shades, sixteen greys, and the number itself.
#pragma once

#include "core/dialog.h"
#include "core/form/panel.h"

namespace korvane {

class ColourChooser : public Dialog {
 public:
  explicit ColourChooser(const DialogUses& dialog);

  // The colour that was confirmed, beginning with `current`; nothing when cancelled, or when it is
  // on the screen already. `element` is the heading. Yields.
  std::optional<Colour> choose(Colour current, const QString& element);

 private:
  struct Panel : FormPanel {
    using FormPanel::FormPanel;
    Label* lblTitle = bind("lblTitle");
    Frame* before = bind("before");
    Frame* after = bind("after");
    TextBox* txtNumber = bind("txtNumber");
    std::array<Button*, 96> cmdColour = bind("cmdColour");
    std::array<Button*, 16> cmdGrey = bind("cmdGrey");
  };

  void Form_Load(Colour current, const QString& element);
  void show(Colour colour);
  void txtNumber_Click();
  void leaveWith(bool confirmed);

  Panel panel_;
  Colour chosen_ = 0;
  bool confirmed_ = false;
};

// Hue in degrees, saturation and lightness 0 to 1.
Colour colourOfHsl(double hue, double saturation, double lightness);

// "16711680" as stored, or "#RRGGBB"; nothing for any other text.
std::optional<Colour> colourOfText(const QString& text);

}  // namespace korvane
