// Programs that are never started: what was asked of them, and their ends on command.
#pragma once

#include <map>

#include "platform/programs.h"

namespace korvane {

class FakePrograms : public Programs {
 public:
  int start(const QString& path, std::function<void()> ended, QString* error) override {
    calls << u"start "_s + path;
    if (missing.contains(path)) {
      *error = u"No such file or directory"_s;
      return 0;
    }
    ended_[++last] = std::move(ended);
    return last;
  }
  bool running(int task) const override { return ended_.contains(task); }
  bool activate(int task) override {
    calls << u"activate "_s + QString::number(task);
    return hasWindow;
  }
  bool runnable(const QString& path) const override { return !missing.contains(path); }

  void end(int task) {
    const std::function<void()> ended = std::move(ended_.at(task));
    ended_.erase(task);
    ended();
  }

  QStringList calls, missing;
  bool hasWindow = true;
  int last = 0;  // the task of the last start

 private:
  std::map<int, std::function<void()>> ended_;
};

}  // namespace korvane
