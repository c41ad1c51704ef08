#include "playback/next_song.h"

#include <algorithm>

namespace korvane {

int anyOf(int count, float rnd) {
  const int record = static_cast<int>(static_cast<double>(rnd) * count) + 1;
  return std::clamp(record, std::min(count, 1), count);
}

int nextInList(const PlayModes& modes, int position, int count,
               const std::function<int(bool refill)>& draw) {
  if (count == 0) return 0;
  if (modes.random) return count == 1 ? 1 : draw(modes.continueOn);
  if (modes.repeat) return position;
  const bool last = position >= count;
  if (modes.continueOn) return last ? 1 : position + 1;
  return last ? 0 : position + 1;
}

int nextOfAllSongs(const PlayModes& modes, int position, int count, float rnd) {
  if (count == 0) return 0;
  if (modes.repeat) return position;
  if (modes.random) return anyOf(count, rnd);
  if (position < count) return position + 1;
  return modes.continueOn ? 1 : 0;
}

int stepInList(int position, int count, int step) {
  if (count == 0) return 0;
  const int to = position + step;
  return to < 1 ? count : to > count ? 1 : to;
}

}  // namespace korvane
