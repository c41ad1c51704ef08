#include "custom/keyboard/key_logic.h"

#include "tests/fakes/form_world.h"

namespace korvane {
namespace {

constexpr int kA = 30, kOne = 2, kNine = 10, kMinus = 12;

TEST(KeyLogic, TypesWithShiftAndCaps) {
  const std::pair<std::vector<int>, QString> cases[] = {
      {{kA, kOne}, u"a1"_s},
      {{scan::Shift, kA, kA}, u"Aa"_s},  // shift holds for one character
      {{scan::Shift, kNine, kNine}, u"(9"_s},
      {{scan::CapsLock, kOne, kA, kOne}, u"!A!"_s},  // caps lock shifts digits too
      {{scan::CapsLock, kA, scan::CapsLock, kA}, u"Aa"_s},
      {{scan::Shift, kMinus}, u"-"_s},  // a key without a second character
      {{scan::Shift, scan::Left, kA}, u"A"_s},
      {{kA, scan::Space, kA}, u"a a"_s},
      {{9999, -1, 0, 15, 200}, u""_s},  // keys that the layout does not have
  };
  for (const auto& [codes, text] : cases) {
    KeyState state;
    for (const int code : codes) state = pressKey(usKeyboard(), code, state).state;
    EXPECT_EQ(state.text, text);
    EXPECT_EQ(state.selStart, text.size());
  }
}

TEST(KeyLogic, EditsAtTheCaret) {
  const QString pair = u"a"_s + QString::fromUtf8("\U0001F3B5") + u"b"_s;
  const struct {
    const char* what;
    QString text;
    int caret, code;
    QString then;
    int caretThen;
  } cases[] = {
      {"between", u"bc"_s, 1, kA, u"bac"_s, 2},
      {"backspace within", u"abc"_s, 1, scan::Backspace, u"bc"_s, 0},
      {"backspace in front", u"abc"_s, 0, scan::Backspace, u"abc"_s, 0},
      {"delete within", u"abc"_s, 1, scan::Delete, u"ac"_s, 1},
      {"delete at the end", u"abc"_s, 3, scan::Delete, u"abc"_s, 3},
      {"delete takes every ^", u"^a^b^"_s, 1, scan::Delete, u"b"_s, 1},
      {"delete moves no caret beyond", u"^^^a"_s, 3, scan::Delete, u""_s, 0},
      {"delete leaves the caret beside a pair", u"^a^"_s + pair.mid(1, 2), 1, scan::Delete,
       pair.mid(1, 2), 0},
      {"home", u"abc"_s, 2, scan::Home, u"abc"_s, 0},
      {"end", u"abc"_s, 1, scan::End, u"abc"_s, 3},
      {"left in front", u"abc"_s, 0, scan::Left, u"abc"_s, 0},
      {"right at the end", u"abc"_s, 3, scan::Right, u"abc"_s, 3},
      {"a caret out of the text", u"abc"_s, 99, kA, u"abca"_s, 4},
      {"a caret below it", u"abc"_s, -5, kA, u"aabc"_s, 1},
      {"a pair goes whole", pair, 3, scan::Backspace, u"ab"_s, 1},
      {"a pair is deleted whole", pair, 1, scan::Delete, u"ab"_s, 1},
      {"a pair is one step", pair, 1, scan::Right, pair, 3},
  };
  for (const auto& it : cases) {
    SCOPED_TRACE(it.what);
    const KeyState then = pressKey(usKeyboard(), it.code, {it.text, it.caret}).state;
    EXPECT_EQ(then.text, it.then);
    EXPECT_EQ(then.selStart, it.caretThen);
  }
}

TEST(KeyLogic, OnlyEnterAccepts) {
  for (const Key& key : usKeyboard().keys)
    EXPECT_EQ(pressKey(usKeyboard(), key.code, {u"x"_s, 1}).accepted, key.code == scan::Enter);
}

// Keys for a finger: none under 64 units, none over another, all in their frame, each code once.
TEST(KeyboardLayout, KeysHaveRoom) {
  const std::tuple<KeyboardLayout, Rect, int> cases[] =  // in a frame without its margin, the gap
      {{usKeyboard(), {16, 200, 1248, 552}, 8},
       {controlKeyboard(usKeyboard()), {8, 8, 1120, 336}, 4},
       {sendingKeyboard(usKeyboard()), {8, 8, 1120, 352}, 4}};
  for (const auto& [keyboard, area, gap] : cases)
    for (const Key& key : keyboard.keys) {
      SCOPED_TRACE(key.code);
      const Rect at = keyPlace(key, area, gap);
      EXPECT_GE(std::min(at.width, at.height), 64);
      EXPECT_TRUE(at.left >= area.left && at.right() <= area.right());
      EXPECT_LE(at.bottom(), area.bottom());
      EXPECT_LT(key.code, 220);
      EXPECT_EQ(std::ranges::count(keyboard.keys, key.code, &Key::code), 1);
      for (const Key& other : keyboard.keys)
        EXPECT_TRUE(&other == &key || apart(at, keyPlace(other, area, gap))) << other.code;
    }
}

TEST(KeyboardLayout, TheOtherKeyboardsTypeWhatTheChosenOneDoes) {
  EXPECT_EQ(typed(*sendingKeyboard(usKeyboard()).key(43), true), u"|"_s);
  EXPECT_EQ(typed(*controlKeyboard(usKeyboard()).key(26), true), u"["_s);

  KeyboardLayout other = usKeyboard();
  other.name = u"X"_s;
  Key& key = *std::ranges::find(other.keys, 26, &Key::code);
  key.plain = u"ü"_s;
  key.variants = {u"û"_s};
  for (const KeyboardLayout& made : {controlKeyboard(other), sendingKeyboard(other)}) {
    EXPECT_EQ(made.name, u"X"_s);
    EXPECT_EQ(typed(*made.key(26), true), u"Ü"_s);
    EXPECT_EQ(made.key(26)->variants, key.variants);
    EXPECT_TRUE(made.key(scan::Hide));
  }
}

}  // namespace
}  // namespace korvane
