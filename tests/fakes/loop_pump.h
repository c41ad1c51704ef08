// The pump over the real event loop, for real sockets and the real player.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

#include "platform/pump.h"

namespace korvane {

class LoopPump : public Pump {
 public:
  void turn() { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5); }
  void doEvents() override { QCoreApplication::processEvents(); }
  void breathe() override { doEvents(); }
  bool wait(int milliseconds, const std::function<bool()>& done) override {
    QElapsedTimer time;
    for (time.start(); !done(); QCoreApplication::processEvents(QEventLoop::AllEvents, 5))
      if (time.elapsed() > milliseconds) return false;
    return true;
  }
  void later(std::function<void()> work) override {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
  }
  void inBackground(std::function<void()> work, std::function<void()> done) override {
    work();
    later(std::move(done));
  }
};

}  // namespace korvane
