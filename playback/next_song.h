// Which song follows: decided here from the modes and the place in the list, acted on by the
// transport.
#pragma once

#include <functional>

namespace korvane {

struct PlayModes {
  bool repeat = false;  // the same song again
  bool random = false;
  bool continueOn = false;  // the whole list again
};

// The record that follows `position` (1 to `count`) at the end of a song; 0 goes idle.
// `draw(refill)` takes a number of the shuffle bag, 0 when it is empty and may not be refilled.
int nextInList(const PlayModes& modes, int position, int count,
               const std::function<int(bool refill)>& draw);

// The same for the page of all songs, where random takes any song: `rnd` is uniform in [0, 1).
int nextOfAllSongs(const PlayModes& modes, int position, int count, float rnd);

// The record that a press on previous (step -1) or next (step +1) plays: round the ends of the
// list.
int stepInList(int position, int count, int step);

// Int(rnd times count plus 1).
int anyOf(int count, float rnd);

}  // namespace korvane
