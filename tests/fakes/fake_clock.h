// Time and chance as a test sets them.
#pragma once

#include <deque>

#include "platform/clock.h"

namespace korvane {

class FakeClock : public Clock {
 public:
  qint64 monotonicMs() const override { return ms_; }
  QDateTime now() const override { return start.addMSecs(ms_); }
  void advance(qint64 ms) { ms_ += ms; }

  QDateTime start{QDate(2024, 3, 5), QTime(14, 7, 9)};

 private:
  qint64 ms_ = 0;
};

// Gives what the script holds, then the values of a fixed even sequence.
class FakeChance : public Chance {
 public:
  float rnd() override {
    if (script.empty()) {
      sequence_ = sequence_ * 1664525U + 1013904223U;
      return static_cast<float>(sequence_ >> 8) * 0x1p-24F;
    }
    const float value = script.front();
    script.pop_front();
    return value;
  }

  std::deque<float> script;

 private:
  quint32 sequence_ = 1;
};

}  // namespace korvane
