#include "view/window/screen_pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace korvane {

ScreenPointer::ScreenPointer(Screen& screen) : screen_(screen) {
  screen_.observer = this;
  pointerChanged(screen_.MousePointer());
}

ScreenPointer::~ScreenPointer() {
  pointerChanged(Screen::Default);
  screen_.observer = nullptr;
}

void ScreenPointer::pointerChanged(int pointer) {
  const bool waits = pointer == Screen::Hourglass;
  if (waits == waits_) return;
  waits_ = waits;
  if (waits)
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QGuiApplication::restoreOverrideCursor();
}

}  // namespace korvane
