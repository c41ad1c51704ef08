// The event loop in a test's hand. Nothing runs by itself: work that was queued runs in a yield,
// and time passes only in wait(), which runs what a test has put on the clock.
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

  void at(qint64 milliseconds, std::function<void()> work);  // runs it so long from now
  void settle();         // yields until no work is queued; throws when that never ends
  void runBackground();  // runs the background work that was held, and its ends

  bool holdBackground = false;        // background work stays undone until runBackground()
  std::function<void()> duringYield;  // runs once inside the next yield of any kind, then is gone
  int yields = 0, breaths = 0, waits = 0, waitedMs = 0;

 private:
  void yield();
  bool runNext(qint64 until);

  FakeClock& clock_;
  std::deque<std::function<void()>> queue_;
  std::multimap<qint64, std::function<void()>> schedule_;
  std::deque<std::pair<std::function<void()>, std::function<void()>>> background_;
};

}  // namespace korvane
