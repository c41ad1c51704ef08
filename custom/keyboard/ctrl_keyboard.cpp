#include "custom/keyboard/ctrl_keyboard.h"

#include "core/form/panel.h"

namespace korvane {

CtrlKeyboard::CtrlKeyboard(Form& form, const Palette& palette)
    : frame_(controlOf<Frame>(form, u"ctrlKeyboard")),
      keys_(form, palette,
            {u"ctrlKeyboard"_s, u"KEY"_s, u"VARIANT"_s, u"BUBBLE"_s, u"KeyRepeatTimer"_s}) {
  setLayout(usKeyboard());
  keys_.hideAsked = [this] { hide(); };
}

void CtrlKeyboard::showFor(TextBox& target) {
  const bool before = shown();
  keys_.open(target);
  frame_.visible = true;
  if (!before && shownChanged) shownChanged(true);
}

void CtrlKeyboard::hide() {
  if (!shown()) return;
  keys_.close();
  frame_.visible = false;
  if (shownChanged) shownChanged(false);
}

}  // namespace korvane
