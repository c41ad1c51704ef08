// The screen's mouse pointer as the application's cursor.
#pragma once

#include "core/screen.h"

namespace korvane {

class ScreenPointer : public Screen::Observer {
 public:
  // The screen must outlive it and tells nobody else meanwhile.
  explicit ScreenPointer(Screen& screen);
  ~ScreenPointer() override;
  void pointerChanged(int pointer) override;

 private:
  Screen& screen_;
  bool waits_ = false;
};

}  // namespace korvane
