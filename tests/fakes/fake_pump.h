// The event loop in a test's hand. Nothing runs by itself: work that was queued runs in a yield,
// and time passes only in wait() and pass(), which run what a test has put on the clock.
#pragma once

#include <deque>
#include <map>

#include "platform/pump.h"
#include "tests/fakes/fake_clock.h"

namespace korvane {

class FakePump : public Pump {
 public:
  explicit FakePump(FakeClock& clock) : clock_(clock) {}

  void doEvents() override;
  void breathe() override;
  bool wait(int milliseconds, const std::function<bool()>& done) override;
  void later(std::function<void()> work) override;
  void inBackground(std::function<void()> work, std::function<void()> done) override;

  // Runs `work` that many milliseconds from now; from every `period` on again when it is not 0.
  void at(qint64 milliseconds, std::function<void()> work, qint64 period = 0);
  void pass(qint64 milliseconds);  // lets that time pass
  void settle();                   // yields until no work is queued; throws when that never ends
  void runBackground();            // runs the background work that was held, and its ends

  bool waiting() const { return waiting_ > 0; }  // inside wait(): presses are refused

  bool holdBackground = false;        // background work stays undone until runBackground()
  std::function<void()> duringYield;  // runs once inside the next yield of any kind, then is gone
  int yields = 0, breaths = 0, waits = 0, waitedMs = 0;

 private:
  struct Scheduled {
    std::function<void()> work;
    qint64 period;
  };
  void yield();
  bool runNext(qint64 until);

  FakeClock& clock_;
  std::deque<std::function<void()>> queue_;
  std::multimap<qint64, Scheduled> schedule_;
  std::deque<std::pair<std::function<void()>, std::function<void()>>> background_;
  int waiting_ = 0;
};

}  // namespace korvane
