// The event loop of the window.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <memory>

#include "platform/pump.h"
#include "view/window/event_wall.h"
#include "view/window/press_gate.h"

namespace korvane {

class QtPump : public Pump {
 public:
  explicit QtPump(PressGate& gate);  // which must outlive it
  ~QtPump() override;  // waits for what runs in the background; its `done` is not called any more

  void doEvents() override;
  void breathe() override;
  bool wait(int milliseconds, const std::function<bool()>& done) override;
  void later(std::function<void()> work) override;
  // An exception of `work` goes to the wall on the user-interface thread; `done` is called then
  // too.
  void inBackground(std::function<void()> work, std::function<void()> done) override;
  void aside(std::function<void()> work, std::function<void()> done) override;

  EventWall wall;  // around all that later() and inBackground() run

 private:
  PressGate& gate_;
  QObject here_;  // of the user-interface thread
  QElapsedTimer sinceYield_;
  struct Door;
  std::shared_ptr<Door> door_;  // to this, for threads that may outlive it
};

}  // namespace korvane
