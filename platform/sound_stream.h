// Sound that is made while it plays, as the bytes of one WAV file (RIFF WAVE), front to back, once.
#pragma once

#include <span>

#include "platform/text.h"

namespace korvane {

class SoundStream {
 public:
  virtual ~SoundStream() = default;
  virtual qint64 size() const = 0;  // of the whole, in bytes; the sound may end before it

  // Fills the front of `to` and says how many bytes; 0 at the end. Waits for the sound to be made;
  // called on a thread of the player's.
  virtual qsizetype read(std::span<char> to) = 0;

  // From any thread: a read at work, and every later one, is at its end.
  virtual void cancel() = 0;
};

}  // namespace korvane
