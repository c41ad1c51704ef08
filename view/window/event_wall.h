// Keeps exceptions of the console's own work out of Qt, whose event loop they must not unwind.
#pragma once

#include <exception>
#include <functional>

namespace korvane {

class EventWall {
 public:
  // Runs `work`; an exception ends it and goes to `failed`, or to standard error while that is
  // unset or fails itself. Yields when `work` does.
  void run(const std::function<void()>& work) const noexcept;

  std::function<void(const std::exception&)> failed;  // on the user-interface thread
};

}  // namespace korvane
