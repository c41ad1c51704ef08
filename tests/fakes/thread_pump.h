// The pump over the real event loop with a real thread for each work that goes aside. What still
// runs when it is gone is not heard of any more.
#pragma once

#include <mutex>
#include <thread>

#include "tests/fakes/loop_pump.h"

namespace korvane {

class ThreadPump : public LoopPump {
 public:
  ThreadPump() { door_->pump = this; }
  ~ThreadPump() {
    const std::lock_guard lock(door_->mutex);
    door_->pump = nullptr;
  }
  void aside(std::function<void()> work, std::function<void()> done) override {
    std::thread([door = door_, work = std::move(work), done = std::move(done)] {
      work();
      const std::lock_guard lock(door->mutex);
      if (door->pump) door->pump->later(done);
    }).detach();
  }

 private:
  struct Door {
    std::mutex mutex;
    ThreadPump* pump = nullptr;
  };
  const std::shared_ptr<Door> door_ = std::make_shared<Door>();
};

}  // namespace korvane
