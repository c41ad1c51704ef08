// What presses mean for the idle seconds.
#pragma once

namespace korvane {

struct MouseState {
  bool pressed = false;  // the left button has been down since the start
  bool held = false;     // a press is under way that has been counted
  bool right = false;    // and it is one of the right button

  // Looks at the buttons, at every change of them. True when the idle seconds begin again: at each
  // press of the left button but the very first, none of the right one, and none that begins while
  // another is held.
  bool look(bool leftDown, bool rightDown);
};

inline bool MouseState::look(bool leftDown, bool rightDown) {
  bool begins = false;
  if (!leftDown && !rightDown) held = false;
  if (leftDown && !pressed) {
    pressed = held = true;
  } else if (leftDown && !held) {
    right = false;
    held = begins = true;
  }
  if (rightDown && !held) right = held = true;
  return begins;
}

}  // namespace korvane
