// The reader of the owner's buttons on any bytes: every button is within its limits, every broken
// line is kept, and what is written of them is read back as the same buttons and the same lines.
// The input is a file.
#include <cmath>
#include <cstdlib>

#include "custom/buttons/button_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace korvane;
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const ButtonFile file = readButtons(bytes);
  if (std::ssize(file.buttons) > ButtonFile::kMostButtons) std::abort();
  if (std::ssize(file.broken) != file.unread.size()) std::abort();
  for (const CustomButton& button : file.buttons) {
    for (const QString& text : {button.caption, button.action})
      if (text.contains(kButtonSeparator) || text.contains(u'\n')) std::abort();
    for (const float number : {button.left, button.top, button.height, button.width})
      if (!std::isfinite(number)) std::abort();
    if (button.height <= 0 || button.width <= 0 || button.fontSize <= 0) std::abort();
  }
  const ButtonFile again = readButtons(writeButtons(file.buttons, file.unread));
  if (again.buttons != file.buttons || again.unread != file.unread) std::abort();
  return 0;
}
