// How loud what plays is: on the mixer's scale, or where there is no mixer on one of the player's
// own.
#pragma once

#include <functional>
#include <optional>

#include "platform/machine.h"

namespace korvane {

class PlayerLevel {
 public:
  // `setPlayer` serves where there is no mixer: 0 is full, -10000 is silence.
  PlayerLevel(std::function<void(int hundredthsOfDecibel)> setPlayer, Mixer& mixer)
      : setPlayer_(std::move(setPlayer)), mixer_(mixer) {}

  int maximum() const;     // of the scale that now() and set() speak of; its least is 0
  int now() const;         // as last set here, else the mixer's; the maximum of a player never set
  void set(double level);  // cut to the scale
  void changedOutside() { set_.reset(); }  // another program moved the mixer

 private:
  const std::function<void(int)> setPlayer_;
  Mixer& mixer_;
  std::optional<int> set_;
};

}  // namespace korvane
