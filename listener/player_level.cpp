#include "listener/player_level.h"

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

constexpr int kPlayerSteps = 65535;  // of the player's own scale

int hundredthsOfDecibel(int level, int maximum) {
  if (level <= 0) return -10000;
  return static_cast<int>(std::lround(2000 * std::log10(static_cast<double>(level) / maximum)));
}

}  // namespace

int PlayerLevel::maximum() const {
  return mixer_.maximum() > 0 ? mixer_.maximum() : kPlayerSteps;
}

int PlayerLevel::now() const {
  if (set_) return *set_;
  return mixer_.maximum() > 0 ? mixer_.level() : kPlayerSteps;
}

void PlayerLevel::set(double level) {
  set_ = static_cast<int>(std::clamp(level, 0.0, static_cast<double>(maximum())));
  if (!mixer_.setLevel(*set_)) setPlayer_(hundredthsOfDecibel(*set_, maximum()));
}

}  // namespace korvane
