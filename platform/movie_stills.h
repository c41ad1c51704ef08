// Makes stills of movie files, in the background and at low priority.
#pragma once

#include <functional>

#include "platform/text.h"

namespace korvane {

struct MovieStill {
  QByteArray jpeg;     // empty where none could be made
  double seconds = 0;  // the length of the movie; 0 where it is not known
};

class MovieStills {
 public:
  virtual ~MovieStills() = default;

  // A picture of the file, as large as fits into `width` x `height` pixels, some way into the
  // movie. `done` is called from the event loop; for a file that is none, or does not answer for
  // some seconds, with an empty still. One at a time: not while busy().
  virtual void make(const QString& path, int width, int height,
                    std::function<void(const MovieStill&)> done) = 0;
  virtual bool busy() const = 0;
  virtual void stop() = 0;  // ends the one at work; its `done` is not called any more
};

}  // namespace korvane
