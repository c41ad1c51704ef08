// The event loop of a program without a window. No press comes, so wait() refuses none.
#pragma once

#include <QElapsedTimer>
#include <QObject>

#include "platform/pump.h"

namespace korvane {

class ServicePump final : public Pump {
 public:
  ServicePump();
  ~ServicePump() override;  // waits for what runs in the background

  void doEvents() override;
  void breathe() override;
  bool wait(int milliseconds, const std::function<bool()>& done) override;
  void later(std::function<void()> work) override;
  void inBackground(std::function<void()> work, std::function<void()> done) override;

 private:
  QObject here_;
  QElapsedTimer sinceYield_;
};

}  // namespace korvane
