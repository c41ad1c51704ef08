// What playback tells the transport above it.
#pragma once

namespace korvane {

class TransportNews {
 public:
  virtual ~TransportNews() = default;
  virtual void playerPaused() = 0;   // by itself, or at the word of another console
  virtual void playerStopped() = 0;  // the same, or it is out of reach
  virtual void endOfStream() = 0;    // the song at hand has come to its end
  // The song last asked for cannot be played, the `inARow`-th one after another: take the next, or
  // go idle when that is the whole list. The user has been told.
  virtual void songFailed(int inARow) = 0;
};

}  // namespace korvane
