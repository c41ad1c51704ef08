// The keys of the on-screen keyboard, as data: scan code, what a key types, where it lies.
#pragma once

#include <vector>

#include "core/form/control.h"

namespace korvane {

// PC keyboard scan codes of the keys that do something else than typing; extended keys have 128
// added.
namespace scan {
inline constexpr int Backspace = 14, Enter = 28, Shift = 42, Space = 57, CapsLock = 58;
inline constexpr int Home = 199, Left = 203, Right = 205, End = 207, Delete = 211, Clear = 219;
}  // namespace scan

struct Key {
  int code = 0;
  QString plain;           // what it types; empty for a key that types nothing
  QString shifted;         // under shift or caps lock; empty when that makes no difference
  QString face;            // what stands on a key that types nothing, or the space bar
  Rect rect;               // on a surface 1280 units wide, below the text
  QString spoken;          // for accessibility
  QStringList variants{};  // offered by a long hold
};

struct KeyboardLayout {
  QString name;
  std::vector<Key> keys;

  const Key* key(int code) const;  // null when there is none
};

const KeyboardLayout& usKeyboard();

// A held key of this code goes on acting.
bool repeats(int code);

}  // namespace korvane
