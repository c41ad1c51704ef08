// Time and chance, as doors, so that behaviour can be replayed.
#pragma once

#include <QDateTime>

namespace korvane {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual qint64 monotonicMs() const = 0;  // for all behaviour
  virtual QDateTime now() const = 0;       // for the log and what is shown, never for behaviour
};

class Chance {
 public:
  virtual ~Chance() = default;
  virtual float rnd() = 0;  // uniform in [0, 1)
};

}  // namespace korvane
