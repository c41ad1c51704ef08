#include "view/controls/drag_mover.h"

#include <QMouseEvent>

#include "view/controls/control_widget.h"

namespace korvane {
namespace {
constexpr int kSlack = 10;  // pixels a tap may wander
}

DragMover::DragMover(QWidget* handle, bool all) : QObject(handle), handle_(handle) {
  handle->installEventFilter(this);
  if (!all) return;
  for (QWidget* inside : handle->findChildren<QWidget*>()) inside->installEventFilter(this);
}

bool DragMover::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::MouseButtonPress) {
    from_ = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
    start_ = handle_->window()->pos();
    held_ = true;
    dragged_ = false;
  } else if (type == QEvent::MouseMove && held_) {
    const QPoint by = static_cast<QMouseEvent*>(event)->globalPosition().toPoint() - from_;
    if (!dragged_ && by.manhattanLength() > kSlack) {
      dragged_ = true;
      if (auto* pressed = dynamic_cast<ControlWidget*>(watched)) pressed->cancelPress();
    }
    if (dragged_) handle_->window()->move(start_ + by);
  } else if (type == QEvent::MouseButtonRelease) {
    held_ = false;
    return dragged_;
  }
  return false;
}

}  // namespace korvane
