#include "custom/keyboard/key_logic.h"

namespace korvane {
namespace {

// A character beyond the first plane takes two places; the caret never stands between them.
int after(const QString& text, int at) {
  const bool pair =
      at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
  return std::min(at + (pair ? 2 : 1), static_cast<int>(text.size()));
}

// The caret nearest to `at` that the text has.
int caretAt(const QString& text, int at) {
  at = std::clamp(at, 0, static_cast<int>(text.size()));
  const bool within =
      at > 0 && at < text.size() && text[at - 1].isHighSurrogate() && text[at].isLowSurrogate();
  return within ? at - 1 : at;
}

int before(const QString& text, int at) {
  const bool pair = at >= 2 && text[at - 1].isLowSurrogate() && text[at - 2].isHighSurrogate();
  return std::max(at - (pair ? 2 : 1), 0);
}

void backspace(KeyState& state) {
  const int from = before(state.text, state.selStart);
  state.text.remove(from, state.selStart - from);
  state.selStart = from;
}

// The character at the caret becomes a mark, and then every mark goes.
void deleteAtCaret(KeyState& state) {
  if (state.selStart >= state.text.size()) return;
  const int to = after(state.text, state.selStart);
  state.text.replace(state.selStart, to - state.selStart, u"^"_s);
  state.text.remove(u'^');
  state.selStart = caretAt(state.text, state.selStart);
}

void insert(KeyState& state, const QString& character) {
  state.text.insert(state.selStart, character);
  state.selStart += static_cast<int>(character.size());
  state.shiftOnce = false;
}

}  // namespace

KeyState typeCharacter(const QString& character, KeyState state) {
  state.selStart = caretAt(state.text, state.selStart);
  insert(state, state.shifted() ? character.toUpper() : character);
  return state;
}

QString typed(const Key& key, bool shifted) {
  if (!shifted) return key.plain;
  return (key.shifted.isEmpty() ? key.plain : key.shifted).toUpper();
}

KeyResult pressKey(const KeyboardLayout& layout, int code, KeyState state) {
  state.selStart = caretAt(state.text, state.selStart);
  const Key* key = layout.key(code);
  if (!key) return {state};
  switch (code) {
    case scan::Backspace:
      backspace(state);
      break;
    case scan::Delete:
      deleteAtCaret(state);
      break;
    case scan::Enter:
      return {state, true};
    case scan::Shift:
      state.shiftOnce = true;
      break;
    case scan::CapsLock:
      state.capsLock = !state.capsLock;
      break;
    case scan::Home:
      state.selStart = 0;
      break;
    case scan::End:
      state.selStart = static_cast<int>(state.text.size());
      break;
    case scan::Left:
      state.selStart = before(state.text, state.selStart);
      break;
    case scan::Right:
      state.selStart = after(state.text, state.selStart);
      break;
    case scan::Clear:
      state.text.clear();
      state.selStart = 0;
      break;
    default:
      if (!key->plain.isEmpty()) insert(state, typed(*key, state.shifted()));
  }
  return {state};
}

}  // namespace korvane
