#include "view/controls/kinetic_scroll.h"

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

constexpr double kFriction = 325;  // ms in which coasting loses 63 % of its speed
constexpr double kBrake = 40;      // the same past an end
constexpr double kSpring = 90;     // ms in which the rubber loses 63 % of its stretch
constexpr double kStill = 0.02;    // pixels a millisecond
constexpr qint64 kMemory = 100;    // ms of the finger's way that make its speed
constexpr qint64 kRest = 60;       // a finger that rested so long throws nothing
constexpr double kGive = 0.55;

}  // namespace

void KineticScroll::setRange(double maximum, double view) {
  maximum_ = std::max(0.0, maximum);
  view_ = std::max(1.0, view);
  if (state_ == State::Still) offset_ = std::clamp(offset_, 0.0, maximum_);
}

void KineticScroll::jumpTo(double offset) {
  offset_ = std::clamp(offset, 0.0, maximum_);
  velocity_ = 0;
  if (state_ == State::Coasting) state_ = State::Still;
}

double KineticScroll::beyond() const {
  if (offset_ < 0) return offset_;
  return std::max(0.0, offset_ - maximum_);
}

double KineticScroll::offset() const {
  const double over = beyond();
  if (over == 0) return offset_;
  const double bent = (1 - 1 / (std::abs(over) * kGive / view_ + 1)) * view_;
  return over < 0 ? -bent : maximum_ + bent;
}

void KineticScroll::press(double y, qint64 now) {
  state_ = State::Held;
  velocity_ = 0;
  samples_[0] = {y, now};
  count_ = 1;
}

void KineticScroll::move(double y, qint64 now) {
  if (state_ != State::Held) return;
  offset_ -= y - samples_[count_ - 1].y;
  if (count_ == samples_.size()) {
    std::move(samples_.begin() + 1, samples_.end(), samples_.begin());
    --count_;
  }
  samples_[count_++] = {y, now};
}

void KineticScroll::release(qint64 now) {
  if (state_ != State::Held) return;
  const Sample& newest = samples_[count_ - 1];
  size_t oldest = 0;
  while (oldest + 1 < count_ && now - samples_[oldest].at > kMemory) ++oldest;
  const double spent = static_cast<double>(newest.at - samples_[oldest].at);
  velocity_ = spent > 0 && now - newest.at < kRest ? (samples_[oldest].y - newest.y) / spent : 0;
  last_ = now;
  state_ = std::abs(velocity_) > kStill || beyond() != 0 ? State::Coasting : State::Still;
}

bool KineticScroll::step(qint64 now) {
  if (state_ != State::Coasting) return false;
  const double passed = static_cast<double>(std::clamp<qint64>(now - last_, 0, 100));
  last_ = now;
  const double friction = beyond() == 0 ? kFriction : kBrake;
  const double kept = std::exp(-passed / friction);
  offset_ += velocity_ * friction * (1 - kept);
  velocity_ *= kept;
  if (const double over = beyond(); over != 0) {
    const double left = over * std::exp(-passed / kSpring);
    offset_ -= over - left;
    if (std::abs(left) < 0.5 && std::abs(velocity_) < kStill) offset_ -= left;
  }
  if (beyond() == 0 && std::abs(velocity_) < kStill) {
    offset_ = std::clamp(offset_, 0.0, maximum_);
    state_ = State::Still;
  }
  return state_ == State::Coasting;
}

}  // namespace korvane
