// Where a dragged list stands: follows the finger, coasts after it, and gives at the ends like
// rubber. Pixels and milliseconds; no clock and no timer of its own.
#pragma once

#include <QtGlobal>
#include <array>

namespace korvane {

class KineticScroll {
 public:
  // The largest offset, and the height of the view, which sets how far the rubber gives.
  void setRange(double maximum, double view);
  void jumpTo(double offset);  // kept in the range; nothing coasts any more

  void press(double y, qint64 now);  // stops what coasts
  void move(double y, qint64 now);
  void release(qint64 now);
  bool step(qint64 now);  // advances to `now`; true while there is more to come

  bool moving() const { return state_ == State::Coasting; }
  double offset() const;  // what shows; beyond the range while the rubber gives

 private:
  enum class State { Still, Held, Coasting };
  struct Sample {
    double y;
    qint64 at;
  };
  double beyond() const;  // of the offset past its nearer end; 0 inside

  double maximum_ = 0, view_ = 1;
  double offset_ = 0;    // unbent
  double velocity_ = 0;  // pixels a millisecond, positive towards the end
  State state_ = State::Still;
  std::array<Sample, 8> samples_{};
  size_t count_ = 0;
  qint64 last_ = 0;
};

}  // namespace korvane
