// The boxes that wait for an answer on the screen, the system's own included.
#pragma once

#include <functional>
#include <utility>

#include "view/window/finger.h"

namespace korvane {

struct OpenBox {
  QString form, text;
  // By what they say; each is pressed by a finger. They hold while the box is open.
  std::vector<std::pair<QString, std::function<void(Finger&)>>> answers;
  bool system = false;  // the desktop's own, above all forms
};

// The topmost last: a question may lie above a message.
std::vector<OpenBox> openBoxes(WindowHost& host);

}  // namespace korvane
