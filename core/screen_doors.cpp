#include "core/screen_doors.h"

namespace korvane {

const ScreenDoor* ScreenDoors::find(const Control& control) const {
  const auto found = std::ranges::find_if(doors_, [&](const ScreenDoor& door) {
    return control.index == door.index &&
           control.name.compare(QLatin1StringView(door.control), Qt::CaseInsensitive) == 0;
  });
  return found == doors_.end() || !found->open ? nullptr : &*found;
}

bool ScreenDoors::open(const Control& control) const {
  const ScreenDoor* door = find(control);
  if (door) door->open();
  return door != nullptr;
}

void flow(std::span<Control* const> controls, Rect area, int columns, int height, int gap) {
  const int width = (area.width - gap * (columns - 1)) / columns;
  int place = 0;
  for (Control* control : controls) {
    if (!control->visible()) continue;
    control->rect = Rect{area.left + place % columns * (width + gap),
                         area.top + place / columns * (height + gap), width, height};
    ++place;
  }
}

}  // namespace korvane
