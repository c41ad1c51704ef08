// What a press on a key of the on-screen keyboard makes of the text it types into.
#pragma once

#include "custom/keyboard/keyboard_layout.h"

namespace korvane {

struct KeyState {
  QString text;
  int selStart = 0;  // the caret, 0 to the text's length
  bool capsLock = false;
  bool shiftOnce = false;  // for the one next character

  bool shifted() const { return capsLock || shiftOnce; }
  bool operator==(const KeyState&) const = default;
};

struct KeyResult {
  KeyState state;
  bool accepted = false;  // Enter: the input is done
};

// Any code and any caret are safe; a key that the layout does not have does nothing. Caps lock
// shifts digits too, and Delete takes every "^" of the text along.
KeyResult pressKey(const KeyboardLayout& layout, int code, KeyState state);

// A character of its own put in at the caret, upper case as the keys are at present.
KeyState typeCharacter(const QString& character, KeyState state);

// What a key types at present, empty for none.
QString typed(const Key& key, bool shifted);

}  // namespace korvane
