// A pass over many things that each need a thread for a while: several are at work at once on the
// pump's pool, and what they bring is taken on the event loop in the order of the things.
#pragma once

#include <map>
#include <memory>

#include "platform/pump.h"

namespace korvane {

class PooledPass {
 public:
  explicit PooledPass(Pump& pump) : pump_(pump) {}
  ~PooledPass() { drop(); }
  PooledPass(const PooledPass&) = delete;

  // What the event loop does with what a work has brought; may be empty.
  using Taken = std::function<void()>;
  // Runs on a thread of the pool and touches nothing that the event loop may change. One that
  // throws brings nothing.
  using Work = std::function<Taken()>;
  struct Job {
    int count = 0;
    std::function<Work(int at)> work{};       // asked for when its turn comes, on the event loop
    std::function<void(bool stopped)> end{};  // behind the last that was taken
    bool together = true;                     // false: one after the other
  };
  void run(Job job);  // not while one runs
  bool running() const { return running_; }
  void stop();  // begins no other; those at work come to their end and are taken
  void drop();  // takes nothing more, and `end` is not called; what is at work ends by itself

 private:
  void begin();
  void arrived(int at, Taken taken);
  void finish();

  Pump& pump_;
  Job job_;
  std::map<int, Taken> arrived_;  // out of their turn
  int begun_ = 0, taken_ = 0;
  bool running_ = false, stopped_ = false;
  std::shared_ptr<int> round_;
};

}  // namespace korvane
