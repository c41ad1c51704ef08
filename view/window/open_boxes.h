// The boxes that wait for an answer on the screen, the system's own included.
#pragma once

#include <functional>
#include <utility>

#include "view/window/finger.h"

namespace korvane {

struct OpenBox {
  QString form, text;
  std::vector<std::pair<QString, std::function<void(Finger&)>>> answers;  // by what they say
};

std::vector<OpenBox> openBoxes(WindowHost& host);  // the topmost last

}  // namespace korvane
