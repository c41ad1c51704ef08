#include "custom/keyboard/keyboard_layout.h"

namespace korvane {
namespace {

constexpr int kQuarters = 60, kRows = 5;

// A key that types, one key wide unless it says more. Its variants stand apart by blanks.
struct Typing {
  int code;
  const char *plain, *shifted;
  const char* variants = "";
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
  Key key;
  key.code = typing.code;
  key.plain = QString::fromLatin1(typing.plain);
  key.shifted = QString::fromLatin1(typing.shifted);
  key.variants = QString::fromUtf8(typing.variants).split(u' ', Qt::SkipEmptyParts);
  key.quarters = typing.quarters;
  if (typing.code == scan::Space)
    key.face = key.spoken = u"Space"_s;
  else
    key.spoken = key.plain;
  return key;
}

Key keyOf(const Acting& acting) {
  Key key;
  key.code = acting.code;
  key.face = QString::fromUtf8(acting.face);
  key.spoken = QString::fromUtf8(acting.spoken);
  key.quarters = acting.quarters;
  return key;
}

KeyboardLayout layout(const QString& name, const std::vector<Row>& rows) {
  KeyboardLayout made{name, {}};
  for (size_t r = 0; r < rows.size(); ++r) {
    int quarter = 0;
    for (const auto& cell : rows[r]) {
      Key key = std::visit([](const auto& kind) { return keyOf(kind); }, cell);
      key.row = static_cast<int>(r);
      key.quarter = std::exchange(quarter, quarter + key.quarters);
      made.keys.push_back(std::move(key));
    }
  }
  return made;
}

Row digits() {
  return {Typing{41, "`", "", "~"},   Typing{2, "1", "!", "¡ ¹"},
          Typing{3, "2", "@", "²"},   Typing{4, "3", "#", "³"},
          Typing{5, "4", "$", "€ £"}, Typing{6, "5", "%"},
          Typing{7, "6", "^"},        Typing{8, "7", "&"},
          Typing{9, "8", "*"},        Typing{10, "9", "("},
          Typing{11, "0", ")", "°"},  Typing{12, "-", "", "_"},
          Typing{13, "=", "", "+"},   Acting{scan::Backspace, "⌫", "Backspace", 8}};
}

// The upper letters behind a key of 6 quarters; the shifted brackets and bar differ by keyboard.
Row upperLetters(const Acting& first, const char* open, const char* close, const char* bar) {
  return {first,
          Typing{16, "q", "Q"},
          Typing{17, "w", "W"},
          Typing{18, "e", "E", "é è ê ë €"},
          Typing{19, "r", "R"},
          Typing{20, "t", "T"},
          Typing{21, "y", "Y", "ý ÿ"},
          Typing{22, "u", "U", "ú ù û ü"},
          Typing{23, "i", "I", "í ì î ï"},
          Typing{24, "o", "O", "ó ò ô ö õ ø œ"},
          Typing{25, "p", "P"},
          Typing{26, "[", open, "{"},
          Typing{27, "]", close, "}"},
          Typing{43, "\\", bar, "|", 6}};
}

Row middleLetters() {
  return {Acting{scan::CapsLock, "Caps", "Caps lock", 7},
          Typing{30, "a", "A", "á à â ä å ã æ"},
          Typing{31, "s", "S", "ß š"},
          Typing{32, "d", "D"},
          Typing{33, "f", "F"},
          Typing{34, "g", "G"},
          Typing{35, "h", "H"},
          Typing{36, "j", "J"},
          Typing{37, "k", "K"},
          Typing{38, "l", "L"},
          Typing{39, ";", ":"},
          Typing{40, "'", "", "\""},
          Acting{scan::Enter, "Enter", "Enter", 9}};
}

Row lowerLetters(std::initializer_list<Acting> last) {
  Row row = {Acting{scan::Shift, "Shift", "Shift", 9},
             Typing{44, "z", "Z", "ž"},
             Typing{45, "x", "X"},
             Typing{46, "c", "C", "ç"},
             Typing{47, "v", "V"},
             Typing{48, "b", "B"},
             Typing{49, "n", "N", "ñ"},
             Typing{50, "m", "M"},
             Typing{51, ",", "<"},
             Typing{52, ".", ">"},
             Typing{53, "/", "?"}};
  for (const Acting& key : last) row.push_back(key);
  return row;
}

Typing space(int quarters) {
  return {scan::Space, " ", "", "", quarters};
}

KeyboardLayout us() {
  return layout(u"US"_s,
                {digits(),
                 upperLetters({scan::Clear, "Clear", "Clear the text", 6}, "", "", ""),
                 middleLetters(),
                 lowerLetters({{scan::Delete, "Delete", "Delete", 11}}),
                 {Acting{scan::Home, "Home", "To the beginning", 7},
                  Acting{scan::End, "End", "To the end", 7}, space(30),
                  Acting{scan::Left, "←", "Left", 8}, Acting{scan::Right, "→", "Right", 8}}});
}

KeyboardLayout control() {
  return layout(u"US"_s,
                {digits(),
                 upperLetters({scan::Clear, "Clear", "Clear the text", 6}, "", "", ""),
                 middleLetters(),
                 lowerLetters({{scan::Delete, "Delete", "Delete", 11}}),
                 {Acting{scan::Hide, "Hide", "Hide the keyboard", 9},
                  Acting{scan::Home, "Home", "To the beginning", 7},
                  Acting{scan::End, "End", "To the end", 7}, space(23),
                  Acting{scan::Left, "←", "Left", 7}, Acting{scan::Right, "→", "Right", 7}}});
}

KeyboardLayout sending() {
  return layout(
      u"US"_s,
      {digits(),
       upperLetters({scan::Tab, "Tab", "Tab", 6}, "{", "}", "|"),
       middleLetters(),
       lowerLetters({{scan::Up, "↑", "Up", 4}, {scan::Delete, "Delete", "Delete", 7}}),
       {Acting{scan::Hide, "Hide", "Hide the keyboard", 7},
        Acting{scan::Clear, "Clear", "Clear the text", 7},
        Acting{scan::Home, "Home", "To the beginning", 7},
        Acting{scan::End, "End", "To the end", 6}, Acting{scan::Insert, "Ins", "Insert", 5},
        space(16), Acting{scan::Left, "←", "Left", 4}, Acting{scan::Down, "↓", "Down", 4},
        Acting{scan::Right, "→", "Right", 4}}});
}

// The keys of `places` that type, typing as those of `layout` do.
KeyboardLayout typingAs(const KeyboardLayout& layout, KeyboardLayout places) {
  places.name = layout.name;
  for (Key& key : places.keys) {
    const Key* model = layout.key(key.code);
    if (!model || model->plain.isEmpty()) continue;
    if (model->plain != key.plain || !model->shifted.isEmpty()) key.shifted = model->shifted;
    key.plain = model->plain;
    key.spoken = model->spoken;
    key.variants = model->variants;
    key.variants.removeAll(key.shifted);
  }
  return places;
}

}  // namespace

const Key* KeyboardLayout::key(int code) const {
  const auto found = std::ranges::find(keys, code, &Key::code);
  return found == keys.end() ? nullptr : &*found;
}

Rect keyPlace(const Key& key, const Rect& area, int gap) {
  const auto across = [&](int quarter) { return quarter * (area.width + gap) / kQuarters; };
  const auto down = [&](int row) { return row * (area.height + gap) / kRows; };
  return {area.left + across(key.quarter), area.top + down(key.row),
          across(key.quarter + key.quarters) - across(key.quarter) - gap,
          down(key.row + 1) - down(key.row) - gap};
}

const KeyboardLayout& usKeyboard() {
  static const KeyboardLayout keyboard = us();
  return keyboard;
}

KeyboardLayout controlKeyboard(const KeyboardLayout& layout) {
  return typingAs(layout, control());
}

KeyboardLayout sendingKeyboard(const KeyboardLayout& layout) {
  return typingAs(layout, sending());
}

bool repeats(int code) {
  switch (code) {
    case scan::Backspace:
    case scan::Delete:
    case scan::Left:
    case scan::Right:
    case scan::Up:
    case scan::Down:
      return true;
    default:
      return false;
  }
}

}  // namespace korvane
