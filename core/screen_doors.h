// The buttons of the setup screens that open another screen. A button without a door is hidden, so
// that a further screen is one row where the console opens its doors.
#pragma once

#include <functional>
#include <vector>

#include "core/form/form.h"

namespace korvane {

struct ScreenDoor {
  const char* control;
  int index;                   // of an array's member, else -1
  std::function<void()> open;  // Yields.
};

class ScreenDoors {
 public:
  ScreenDoors() = default;
  ScreenDoors(std::vector<ScreenDoor> doors) : doors_(std::move(doors)) {}
  void add(ScreenDoor door) { doors_.push_back(std::move(door)); }

  const ScreenDoor* find(const Control& control) const;
  bool open(const Control& control) const;  // false when there is no door. Yields.

 private:
  std::vector<ScreenDoor> doors_;
};

// Lays the visible ones of `controls` side by side and row by row over `area`, in their order.
void flow(std::span<Control* const> controls, Rect area, int columns, int height, int gap);

}  // namespace korvane
