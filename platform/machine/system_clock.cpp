#include "platform/machine/system_clock.h"

namespace korvane {

qint64 SystemClock::monotonicMs() const {
  const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
}

RandomChance::RandomChance(const Clock& clock)
    : generator_(static_cast<quint32>(clock.now().toMSecsSinceEpoch() + clock.monotonicMs())) {}

// The 24 bits of a float's fraction, so that 1 is never reached by rounding.
float RandomChance::rnd() {
  return static_cast<float>(generator_() >> 8) * 0x1p-24F;
}

}  // namespace korvane
