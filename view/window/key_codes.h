// Keys by the classic virtual-key codes, which the forms' handlers look at.
#pragma once

namespace korvane {

// The virtual-key code of a Qt::Key; 0 for a key without one.
int virtualKey(int qtKey, bool keypad);

// A Qt::Key of that code; Qt::Key_unknown for a code that no key has.
int qtKey(int virtualKey);

}  // namespace korvane
