// Ends a service in order: SIGTERM and SIGINT as a call from the event loop.
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace korvane {

class EndSignal {
 public:
  explicit EndSignal(std::function<void()> end);  // one at a time
  ~EndSignal();

 private:
  int file_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace korvane
