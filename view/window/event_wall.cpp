#include "view/window/event_wall.h"

#include <cstdio>

namespace korvane {

void EventWall::run(const std::function<void()>& work) const noexcept {
  try {
    try {
      work();
    } catch (const std::exception& failure) {
      if (!failed) throw;
      failed(failure);
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "korvane: %s\n", failure.what());
  }
}

}  // namespace korvane
