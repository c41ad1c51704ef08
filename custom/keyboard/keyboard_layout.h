// The keys of the on-screen keyboards, as data: scan code, what a key types, where it lies.
#pragma once

#include <vector>

#include "core/form/control.h"

namespace korvane {

// PC keyboard scan codes of the keys that do something else than typing; extended keys have 128
// added. Hide is none of them: a key without a scan code.
namespace scan {
inline constexpr int Backspace = 14, Tab = 15, Enter = 28, Shift = 42, Space = 57, CapsLock = 58;
inline constexpr int Home = 199, Up = 200, Left = 203, Right = 205, End = 207, Down = 208;
inline constexpr int Insert = 210, Delete = 211, Clear = 219, Hide = 217;
}  // namespace scan

struct Key {
  int code = 0;
  QString plain;         // what it types; empty for a key that types nothing
  QString shifted;       // under shift or caps lock; empty when that makes no difference
  QString face;          // what stands on a key that types nothing, or the space bar
  QString spoken;        // for accessibility
  QStringList variants;  // offered by a long hold
  int row = 0;           // from the top, 0 to 4
  int quarter = 0;       // of its left edge: a row is 60 quarters of a key wide
  int quarters = 4;      // its width
};

struct KeyboardLayout {
  QString name;
  std::vector<Key> keys;

  const Key* key(int code) const;  // null when there is none
};

// Keys beside each other and rows below each other, with gaps in form units.
Rect keyPlace(const Key& key, const Rect& area, int gap);

const KeyboardLayout& usKeyboard();  // of frmKeyboard

// What `layout` types, on the keys of the other keyboards.
KeyboardLayout controlKeyboard(const KeyboardLayout& layout);  // of ctrlKeyboard, with Hide
// Of NctrlKeyboard: Hide, Tab, Up, Down and Insert too, and the braces and the bar of the US
// keyboard.
KeyboardLayout sendingKeyboard(const KeyboardLayout& layout);

// A held key of this code goes on acting.
bool repeats(int code);

}  // namespace korvane
