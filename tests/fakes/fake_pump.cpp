#include "tests/fakes/fake_pump.h"

#include <stdexcept>

namespace korvane {

void FakePump::yield() {
  if (duringYield) std::exchange(duringYield, nullptr)();
  for (size_t due = queue_.size(); due > 0 && !queue_.empty(); --due) {
    const auto work = std::move(queue_.front());
    queue_.pop_front();
    work();
  }
  while (runNext(clock_.monotonicMs())) {
  }
}

// Runs the earliest scheduled work that is due by `until`, at its time.
bool FakePump::runNext(qint64 until) {
  if (schedule_.empty() || schedule_.begin()->first > until) return false;
  const auto [time, work] = *schedule_.begin();
  schedule_.erase(schedule_.begin());
  clock_.advance(std::max<qint64>(time - clock_.monotonicMs(), 0));
  work();
  return true;
}

void FakePump::doEvents() {
  ++yields;
  yield();
}

void FakePump::breathe() {
  ++breaths;
  yield();
}

bool FakePump::wait(int milliseconds, const std::function<bool()>& done) {
  const qint64 begin = clock_.monotonicMs(), end = begin + milliseconds;
  ++waits;
  bool held = done();
  for (bool over = false; !held && !over; held = done()) {
    if (!queue_.empty() || duringYield) {
      yield();
    } else if (!runNext(end)) {
      clock_.advance(std::max<qint64>(end - clock_.monotonicMs(), 0));
      over = true;
    }
  }
  waitedMs += static_cast<int>(clock_.monotonicMs() - begin);
  return held;
}

void FakePump::later(std::function<void()> work) {
  queue_.push_back(std::move(work));
}

void FakePump::inBackground(std::function<void()> work, std::function<void()> done) {
  background_.emplace_back(std::move(work), std::move(done));
  if (!holdBackground) runBackground();
}

void FakePump::runBackground() {
  while (!background_.empty()) {
    const auto [work, done] = std::move(background_.front());
    background_.pop_front();
    work();
    if (done) later(done);
  }
}

void FakePump::at(qint64 milliseconds, std::function<void()> work) {
  schedule_.emplace(clock_.monotonicMs() + milliseconds, std::move(work));
}

void FakePump::settle() {
  constexpr int kMost = 100'000;
  for (int rounds = 0; !queue_.empty() || duringYield; ++rounds) {
    if (rounds == kMost) throw std::runtime_error("the queued work never ends");
    yield();
  }
}

}  // namespace korvane
