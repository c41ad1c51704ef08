// A timer of the event loop; called from its thread. Its end stops it.
#pragma once

#include <functional>

namespace korvane {

class Ticker {
 public:
  virtual ~Ticker() = default;
  std::function<void()> tick;                // called from the event loop
  virtual void start(int milliseconds) = 0;  // again and again until stopped; anew when it runs
  virtual void stop() = 0;
  virtual bool running() const = 0;
};

}  // namespace korvane
