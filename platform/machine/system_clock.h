// This machine's time and chance.
#pragma once

#include <random>

#include "platform/clock.h"

namespace korvane {

class SystemClock : public Clock {
 public:
  qint64 monotonicMs() const override;
  QDateTime now() const override { return QDateTime::currentDateTime(); }
};

class RandomChance : public Chance {
 public:
  explicit RandomChance(quint32 seed) : generator_(seed) {}
  explicit RandomChance(const Clock& clock);  // seeded from the clock
  float rnd() override;

 private:
  std::mt19937 generator_;
};

}  // namespace korvane
