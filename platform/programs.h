// Other programs of this machine: started on their own, never waited for.
#pragma once

#include <functional>

#include "platform/text.h"

namespace korvane {

class Programs {
 public:
  virtual ~Programs() = default;

  // Starts the program file at `path`, with no argument, no shell and its own folder as its working
  // directory, as a session of its own that outlives the console. Its task number; 0 with `error`
  // in words when it cannot be started. `ended` comes from the event loop when it has exited.
  virtual int start(const QString& path, std::function<void()> ended, QString* error) = 0;
  virtual bool running(int task) const = 0;  // false for a number that start() never gave

  // Brings the window of the task to the front; false when it shows none or the display cannot.
  virtual bool activate(int task) = 0;

  // Whether the file can be started at all.
  virtual bool runnable(const QString& path) const = 0;
};

}  // namespace korvane
