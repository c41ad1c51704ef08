// The event loop of the window.
#pragma once

#include <QElapsedTimer>
#include <QObject>

#include "platform/pump.h"
#include "view/window/press_gate.h"

namespace korvane {

class QtPump : public Pump {
 public:
  explicit QtPump(PressGate& gate);
  ~QtPump() override;  // waits for what runs in the background; its `done` is not called any more

  void doEvents() override;
  void breathe() override;
  bool wait(int milliseconds, const std::function<bool()>& done) override;
  void later(std::function<void()> work) override;
  void inBackground(std::function<void()> work, std::function<void()> done) override;

 private:
  PressGate& gate_;
  QObject here_;  // of the user-interface thread
  QElapsedTimer sinceYield_;
};

}  // namespace korvane
