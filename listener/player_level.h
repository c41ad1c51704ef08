// How loud this machine plays: on the mixer's scale, or where there is no mixer on one of the
// players' own.
#pragma once

#include <functional>
#include <optional>

#include "platform/machine.h"
#include "platform/media_player.h"

namespace korvane {

class PlayerLevel {
 public:
  // `setVolume` sets that of every player, in hundredths of a decibel from -10000 to 0. Both
  // outlive this.
  PlayerLevel(std::function<void(int)> setVolume, Mixer& mixer)
      : setVolume_(std::move(setVolume)), mixer_(mixer) {}
  PlayerLevel(MediaPlayer& player, Mixer& mixer)
      : PlayerLevel([&player](int volume) { player.setVolume(volume); }, mixer) {}

  int maximum() const;     // of the scale that now() and set() speak of; its least is 0
  int now() const;         // as last set here, else the mixer's; the maximum of a player never set
  void set(double level);  // cut to the scale
  void changedOutside() { set_.reset(); }  // another program moved the mixer

 private:
  std::function<void(int)> setVolume_;
  Mixer& mixer_;
  std::optional<int> set_;
};

}  // namespace korvane
