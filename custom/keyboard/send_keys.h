// Strings for SendKeys: characters as they are, and in braces the keys without a character and the
// characters that would mean something else.
#pragma once

#include <optional>
#include <vector>

#include "custom/keyboard/keyboard_layout.h"

namespace korvane {

struct KeyStroke {
  int key = 0;   // the classic virtual-key code; 0 where only the text counts
  QString text;  // what it types; a control character for Backspace, Tab and Enter
  bool operator==(const KeyStroke&) const = default;
};

// The string for a key that only acts, as "{BACKSPACE}"; empty for any other.
QString namedKey(int code);
// A character as SendKeys wants it: "{%}" for "%".
QString braced(const QString& character);
// What the string types, in order; nothing for one whose braces do not close or name no key.
std::optional<std::vector<KeyStroke>> keyStrokes(const QString& keys);

}  // namespace korvane
