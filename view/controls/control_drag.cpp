#include "view/controls/control_drag.h"

#include <QMouseEvent>

namespace korvane {
namespace {

constexpr int kSlack = 8;  // form units a tap may wander

}  // namespace

bool ControlDrag::takes(const QEvent& event) {
  const auto finger = [&event] {
    return static_cast<const QMouseEvent&>(event).globalPosition().toPoint();
  };
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (static_cast<const QMouseEvent&>(event).button() != Qt::LeftButton) return true;
      from_ = finger();
      start_ = control_.rect();
      held_ = true;
      moved_ = false;
      control_.form.fire(control_, {Event::Press});
      return true;
    case QEvent::MouseMove:
      if (held_) moveTo(finger());
      return true;
    case QEvent::MouseButtonRelease:
      if (!std::exchange(held_, false)) return true;
      control_.form.fire(control_, {Event::Release});
      return true;
    default:
      return false;
  }
}

void ControlDrag::moveTo(QPoint finger) {
  const QPoint by = (finger - from_) / face_.scale;
  if (!moved_ && by.manhattanLength() <= kSlack) return;
  moved_ = true;
  const Control* box = control_.container;
  const int width = box ? box->rect().width : control_.form.width();
  const int height = box ? box->rect().height : control_.form.height();
  Rect to = start_;
  to.left = std::clamp(start_.left + by.x(), 0, std::max(0, width - to.width));
  to.top = std::clamp(start_.top + by.y(), 0, std::max(0, height - to.height));
  control_.form.move(control_, to);
}

}  // namespace korvane
