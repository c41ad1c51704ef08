// Ticker over QTimer, exact to a millisecond.
#pragma once

#include <QTimer>

#include "platform/ticker.h"

namespace korvane {

class TickerQt final : public Ticker {
 public:
  TickerQt() {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.callOnTimeout([this] {
      if (tick) tick();
    });
  }
  void start(int milliseconds) override { timer_.start(milliseconds); }
  void stop() override { timer_.stop(); }
  bool running() const override { return timer_.isActive(); }

 private:
  QTimer timer_;
};

}  // namespace korvane
