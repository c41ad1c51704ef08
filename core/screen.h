// The screen's mouse pointer, which is also the mark that a press is at work.
#pragma once

#include "core/form/watched.h"

namespace korvane {

class Screen : public Noticing {
 public:
  enum { Default = 0, Hourglass = 11, Custom = 99 };
  Watched<int> MousePointer{*this, Aspect::Pointer, Default};
  bool busy() const { return MousePointer() == Hourglass; }

  class Observer {
   public:
    virtual ~Observer() = default;
    virtual void pointerChanged(int pointer) = 0;
  };
  Observer* observer = nullptr;
  void changed(Aspect) override {
    if (observer) observer->pointerChanged(MousePointer());
  }
};

// The hourglass while it lives; then the pointer that was there before, or `after`.
class Busy {
 public:
  explicit Busy(Screen& screen) : Busy(screen, screen.MousePointer()) {}
  Busy(Screen& screen, int after) : screen_(screen), after_(after) {
    screen_.MousePointer = Screen::Hourglass;
  }
  ~Busy() { screen_.MousePointer = after_; }
  Busy(const Busy&) = delete;

 private:
  Screen& screen_;
  int after_;
};

}  // namespace korvane
