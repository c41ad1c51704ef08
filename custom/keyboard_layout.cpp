#include "custom/keyboard_layout.h"

namespace korvane {
namespace {

// A row of the keyboard is 60 quarters of a key wide.
constexpr int kQuarters = 60;
constexpr int kMargin = 16, kGap = 8, kSurface = 1280, kTop = 200, kHeight = 104;

Rect place(int row, int quarter, int quarters) {
  const auto edge = [](int at) {
    return kMargin + at * (kSurface - 2 * kMargin + kGap) / kQuarters;
  };
  return {edge(quarter), kTop + row * (kHeight + kGap),
          edge(quarter + quarters) - edge(quarter) - kGap, kHeight};
}

// A key that types, one key wide unless told.
struct Typing {
  int code;
  const char *plain, *shifted;
  int quarters = 4;
};
// A key that types nothing.
struct Acting {
  int code;
  const char *face, *spoken;
  int quarters;
};
using Row = std::vector<std::variant<Typing, Acting>>;

Key keyOf(const Typing& typing) {
  const bool space = typing.code == scan::Space;
  Key key{
      typing.code, QString::fromLatin1(typing.plain), QString::fromLatin1(typing.shifted), {}, {},
      {}};
  if (space)
    key.face = key.spoken = u"Space"_s;
  else
    key.spoken = key.plain;
  return key;
}

Key keyOf(const Acting& acting) {
  return {
      acting.code, {}, {}, QString::fromUtf8(acting.face), {}, QString::fromUtf8(acting.spoken)};
}

KeyboardLayout layout(const QString& name, const std::vector<Row>& rows) {
  KeyboardLayout made{name, {}};
  for (size_t r = 0; r < rows.size(); ++r) {
    int quarter = 0;
    for (const auto& cell : rows[r]) {
      const auto [key, quarters] =
          std::visit([](const auto& told) { return std::pair(keyOf(told), told.quarters); }, cell);
      made.keys.push_back(key);
      made.keys.back().rect = place(static_cast<int>(r), quarter, quarters);
      quarter += quarters;
    }
  }
  return made;
}

std::vector<Row> usRows() {
  return {
      {Typing{41, "`", ""}, Typing{2, "1", "!"}, Typing{3, "2", "@"}, Typing{4, "3", "#"},
       Typing{5, "4", "$"}, Typing{6, "5", "%"}, Typing{7, "6", "^"}, Typing{8, "7", "&"},
       Typing{9, "8", "*"}, Typing{10, "9", "("}, Typing{11, "0", ")"}, Typing{12, "-", ""},
       Typing{13, "=", ""}, Acting{scan::Backspace, "⌫", "Backspace", 8}},
      {Acting{scan::Clear, "Clear", "Clear the text", 6}, Typing{16, "q", "Q"},
       Typing{17, "w", "W"}, Typing{18, "e", "E"}, Typing{19, "r", "R"}, Typing{20, "t", "T"},
       Typing{21, "y", "Y"}, Typing{22, "u", "U"}, Typing{23, "i", "I"}, Typing{24, "o", "O"},
       Typing{25, "p", "P"}, Typing{26, "[", ""}, Typing{27, "]", ""}, Typing{43, "\\", "", 6}},
      {Acting{scan::CapsLock, "Caps", "Caps lock", 7}, Typing{30, "a", "A"}, Typing{31, "s", "S"},
       Typing{32, "d", "D"}, Typing{33, "f", "F"}, Typing{34, "g", "G"}, Typing{35, "h", "H"},
       Typing{36, "j", "J"}, Typing{37, "k", "K"}, Typing{38, "l", "L"}, Typing{39, ";", ":"},
       Typing{40, "'", ""}, Acting{scan::Enter, "Enter", "Enter", 9}},
      {Acting{scan::Shift, "Shift", "Shift", 9}, Typing{44, "z", "Z"}, Typing{45, "x", "X"},
       Typing{46, "c", "C"}, Typing{47, "v", "V"}, Typing{48, "b", "B"}, Typing{49, "n", "N"},
       Typing{50, "m", "M"}, Typing{51, ",", "<"}, Typing{52, ".", ">"}, Typing{53, "/", "?"},
       Acting{scan::Delete, "Delete", "Delete", 11}},
      {Acting{scan::Home, "Home", "To the beginning", 7}, Acting{scan::End, "End", "To the end", 7},
       Typing{scan::Space, " ", "", 30}, Acting{scan::Left, "←", "Left", 8},
       Acting{scan::Right, "→", "Right", 8}},
  };
}

}  // namespace

const Key* KeyboardLayout::key(int code) const {
  const auto found = std::ranges::find(keys, code, &Key::code);
  return found == keys.end() ? nullptr : &*found;
}

const KeyboardLayout& usKeyboard() {
  static const KeyboardLayout us = layout(u"US"_s, usRows());
  return us;
}

bool repeats(int code) {
  return code == scan::Backspace || code == scan::Delete || code == scan::Left ||
         code == scan::Right;
}

}  // namespace korvane
