// The on-screen keyboard's key logic on any text, caret and presses: the caret stays within the
// text, no character is torn, and only Enter accepts. The input: a byte for the caret, the text as
// UTF-8 up to a zero, then a byte a press.
#include <cstdlib>

#include "custom/keyboard/key_logic.h"

namespace {

// Halves of a pair that stand alone.
qsizetype tornIn(const QString& text) {
  qsizetype torn = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool pair =
        i + 1 < text.size() && text[i].isHighSurrogate() && text[i + 1].isLowSurrogate();
    if (pair)
      ++i;
    else
      torn += text[i].isSurrogate();
  }
  return torn;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  if (size < 2) return 0;
  const QByteArrayView input(data + 1, static_cast<qsizetype>(size) - 1);
  const qsizetype zero = input.indexOf('\0');
  KeyState state{QString::fromUtf8(zero < 0 ? input : input.first(zero)), 0};
  state.selStart = data[0] - 64;  // also out of the text and between the halves of a pair
  if (zero < 0) return 0;
  for (const char press : input.sliced(zero + 1)) {
    const int code = static_cast<uchar>(press);
    const qsizetype before = state.text.size();
    const KeyResult result = pressKey(usKeyboard(), code, state);
    state = result.state;
    if (state.selStart < 0 || state.selStart > state.text.size()) std::abort();
    if (state.text.size() > before + 1) std::abort();
    if (tornIn(state.text) != 0) std::abort();
    if (result.accepted != (code == scan::Enter)) std::abort();
  }
  return 0;
}
