// What is pressed on the console's screen, wherever that is: a finger, or the buttons of a mouse.
// The face says it; one hears it.
#pragma once

#include <functional>

namespace korvane {

class Touches {
 public:
  bool left = false;   // a finger is down, or the left button
  bool right = false;  // the right button is

  // Hears each change before any control does, but for a press that a wait refuses. True keeps the
  // touch from what lies there: all of it until it is lifted, and a second tap that follows at
  // once.
  std::function<bool()> changed;

  // Of the face. Returns what `changed` said.
  bool tell(bool leftDown, bool rightDown) {
    if (left == leftDown && right == rightDown) return false;
    left = leftDown;
    right = rightDown;
    return changed && changed();
  }
};

}  // namespace korvane
