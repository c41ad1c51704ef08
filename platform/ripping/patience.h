// How long is tried at one place of a disc. Time counts only where there is trouble; a second of
// sound without any ends a place.
#pragma once

#include <chrono>

#include "platform/disc_drive.h"

namespace korvane {

class Patience {
 public:
  using Time = std::chrono::steady_clock;
  explicit Patience(Time::duration limit) : limit_(limit) {}

  void begin() {  // the next sectors are read
    begun_ = Time::now();
    troubled_ = false;
  }
  void trouble() { troubled_ = true; }  // in reading them
  bool over() const { return troubled_ && spent_ + (Time::now() - begun_) > limit_; }
  void end(int sectors) {  // so many were read
    if (troubled_) spent_ += Time::now() - begun_;
    good_ = troubled_ ? 0 : good_ + sectors;
    if (good_ >= kSectorsPerSecond) spent_ = {};
  }

 private:
  const Time::duration limit_;
  Time::time_point begun_;
  Time::duration spent_{};
  bool troubled_ = false;
  int good_ = 0;  // sectors in a row
};

}  // namespace korvane
