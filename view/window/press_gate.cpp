#include "view/window/press_gate.h"

#include <QCoreApplication>
#include <QEvent>

#include "view/controls/slider_widget.h"

namespace korvane {

void PressGate::set(int refusals) {
  const bool before = refusing();
  refusals_ = refusals;
  if (before == refusing()) return;
  if (refusing())
    qApp->installEventFilter(this);
  else
    qApp->removeEventFilter(this);
}

bool PressGate::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TabletPress:
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
      return true;
    case QEvent::TouchEnd:
    case QEvent::MouseButtonRelease: {
      // The end of a press from before the wait: a slider is let go, anything else fires nothing.
      auto* pressed = dynamic_cast<ControlWidget*>(watched);
      if (!pressed || dynamic_cast<SliderWidget*>(pressed)) return false;
      pressed->cancelPress();
      return true;
    }
    default:
      return false;
  }
}

}  // namespace korvane
