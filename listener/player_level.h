// How loud the music is: on the mixer's scale, or where there is no mixer on one of the player's
// own.
#pragma once

#include <optional>

#include "platform/machine.h"
#include "platform/media_player.h"

namespace korvane {

class PlayerLevel {
 public:
  PlayerLevel(MediaPlayer& player, Mixer& mixer) : player_(player), mixer_(mixer) {}

  int maximum() const;     // of the scale that now() and set() speak of; its least is 0
  int now() const;         // as last set here, else the mixer's; the maximum of a player never set
  void set(double level);  // cut to the scale
  void changedOutside() { set_.reset(); }  // another program moved the mixer

 private:
  MediaPlayer& player_;
  Mixer& mixer_;
  std::optional<int> set_;
};

}  // namespace korvane
