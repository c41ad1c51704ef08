// The door to the event loop: yields and waits of the one user-interface thread. All but later()
// are called from that thread.
#pragma once

#include <functional>
#include <utility>

namespace korvane {

class Pump {
 public:
  virtual ~Pump() = default;

  // Runs what is due: sockets, timers, painting and presses. Yields.
  virtual void doEvents() = 0;

  // The yield of a long pass, cheap enough for every file: runs what is due when 4 ms have passed
  // since the last yield. Yields.
  virtual void breathe() = 0;

  // Waits until `done` holds, at most `milliseconds`, with sockets, timers and painting alive;
  // presses made meanwhile are refused. True when `done` held. Yields.
  virtual bool wait(int milliseconds, const std::function<bool()>& done) = 0;

  // Runs `work` from the event loop, after the event at hand; from any thread.
  virtual void later(std::function<void()> work) = 0;

  // Runs `work` on a thread of its own and then `done` from the event loop. `work` must not touch
  // anything that the user-interface thread may change.
  virtual void inBackground(std::function<void()> work, std::function<void()> done) = 0;

  // The same for work that may never come back, as a look at a disk that is out of reach: on a
  // thread that keeps no other work waiting and that nobody waits for at the end, when `work` may
  // still be running. It owns all that it touches.
  virtual void aside(std::function<void()> work, std::function<void()> done) {
    inBackground(std::move(work), std::move(done));
  }
};

}  // namespace korvane
