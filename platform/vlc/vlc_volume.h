// The scale of libVLC's volume.
#pragma once

#include <algorithm>
#include <cmath>

namespace korvane {

// libVLC's volume, in percent of full with its cubic scale, for a level in hundredths of a decibel.
inline int vlcVolume(int hundredthsOfDecibel) {
  if (hundredthsOfDecibel <= -10000) return 0;
  const double amplitude = std::pow(10.0, std::min(hundredthsOfDecibel, 0) / 2000.0);
  return static_cast<int>(std::lround(100 * std::cbrt(amplitude)));
}

}  // namespace korvane
