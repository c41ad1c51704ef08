// Ends a service in order: SIGTERM and SIGINT as a call from the event loop.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace korvane {

class EndSignal {
 public:
  // Leaves the signals to an EndSignal that is made later; for a program whose application object
  // begins threads.
  static void hold();

  // One at a time, and before any thread is begun, unless hold() was: a thread of before would
  // still end the program. `end` is called for each signal that comes.
  explicit EndSignal(std::function<void()> end);
  ~EndSignal();

 private:
  int file_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace korvane
