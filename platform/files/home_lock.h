// The mark that a console runs: a lock on "korvane.lock" of the program directory, held while this
// lives and released by the system when the process ends in whichever way.
#pragma once

#include "platform/machine.h"

namespace korvane {

class HomeLock : public OneInstance {
 public:
  explicit HomeLock(const QString& home);  // takes nothing yet
  ~HomeLock() override;
  HomeLock(const HomeLock&) = delete;

  // A program directory that cannot be written holds no mark: never taken.
  bool taken() override;

 private:
  QString path_;
  int file_ = -1;
};

}  // namespace korvane
