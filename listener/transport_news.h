// What playback tells the transport above it.
#pragma once

namespace korvane {

class TransportNews {
 public:
  virtual ~TransportNews() = default;
  virtual void pressTransport(int index) = 0;  // as a press on cmdControls(index)
  virtual void endOfStream() = 0;              // the song at hand has come to its end
  // The song last asked for cannot be played, the `inARow`-th one after another: take the next, or
  // go idle when that is the whole list. The user has been told.
  virtual void songFailed(int inARow) = 0;
};

}  // namespace korvane
