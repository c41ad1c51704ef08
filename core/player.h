// A source of sound or pictures, as the controls that all of them share know it: the transport, the
// position slider, the volume and mute.
#pragma once

#include "core/words.h"

namespace korvane {

class Player {
 public:
  // Whose sound it is: music and movies have a mute of their own each.
  enum class Sound { Music, Movies };

  virtual ~Player() = default;

  virtual void press(TransportButton button) = 0;  // Yields.
  virtual PlayMode mode() const = 0;
  // Whether one that is paused can go on from the page at hand; not where its picture lies on
  // another one.
  virtual bool canGoOn() const { return true; }

  // The place in what plays, in seconds. Nothing while nothing does. Yields.
  virtual void moveTo(double seconds) = 0;
  virtual void showTimes() {}  // of the place that the finger has moved Slider1 to

  // Pictures alone: it plays beside what is heard, which keeps the position slider, the volume and
  // mute, and it has the buttons of the transport while its tab is open.
  virtual bool silent() const { return false; }

  virtual Sound sound() const { return Sound::Music; }
  // The level in steps of this player's own, of which levelMaximum() is the highest; 0 while that
  // has not been told.
  virtual double level() const { return 0; }
  virtual double levelMaximum() const { return 0; }
  virtual void setLevel(double /*level*/) {}  // Yields.
  virtual void setMute(bool /*on*/) {}        // Yields.
};

}  // namespace korvane
