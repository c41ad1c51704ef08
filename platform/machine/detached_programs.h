// Programs by posix_spawn(3); their end by a descriptor of the process, pidfd_open(2).
#pragma once

#include <map>
#include <memory>

#include "platform/programs.h"

class QSocketNotifier;

namespace korvane {

class DetachedPrograms : public Programs {
 public:
  DetachedPrograms();
  ~DetachedPrograms() override;  // the programs run on; their end is not heard any more

  int start(const QString& path, std::function<void()> ended, QString* error) override;
  bool running(int task) const override;
  bool activate(int task) override;
  bool runnable(const QString& path) const override;

 private:
  struct Task;
  void finish(int task);
  void sweep();

  std::map<int, std::unique_ptr<Task>> tasks_;  // by process number
};

}  // namespace korvane
