#include "view/controls/press_widget.h"

#include <QMouseEvent>
#include <QTimerEvent>

namespace korvane {
namespace {
constexpr int kSeenMs = 80;
}

void PressWidget::mirror(Aspect aspect) {
  if (aspect == Aspect::Picture && !held_) looksPressed_ = false;
  ControlWidget::mirror(aspect);
}

void PressWidget::look(bool pressed) {
  if (looksPressed_ == pressed) return;
  looksPressed_ = pressed;
  if (pressed)
    repaint();  // seen before the handler's work begins
  else
    update();
}

void PressWidget::press(bool second) {
  face().touch.lastPressed = this;
  held_ = true;
  second_ = second;
  sincePress_.start();
  rise_.stop();
  look(true);
  fire({Event::Press});
}

void PressWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) press(false);
}

void PressWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second tap of a double press on what has just gone is meant for nobody.
  if (event->button() == Qt::LeftButton && face().touch.lastPressed == this) press(true);
}

void PressWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!held_) return;
  const auto units = [this](double pixels) {
    return static_cast<int>(std::lround(pixels / face().scale));
  };
  fire({Event::Move, 0, 0, 0, {}, units(event->position().x()), units(event->position().y())});
}

void PressWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !held_) return;
  held_ = false;
  const qint64 left = kSeenMs - sincePress_.elapsed();
  if (left > 0)
    rise_.start(static_cast<int>(left), this);
  else
    look(false);
  fire({Event::Release});
  if (rect().contains(event->position().toPoint())) clicked(second_);
}

void PressWidget::clicked(bool second) {
  if (second && fire({Event::DblClick})) return;
  fire({Event::Click});
}

void PressWidget::cancelPress() {
  if (!held_) return;
  held_ = false;
  look(false);
  fire({Event::Release});
}

void PressWidget::hideEvent(QHideEvent* event) {
  held_ = looksPressed_ = false;
  rise_.stop();
  ControlWidget::hideEvent(event);
}

void PressWidget::timerEvent(QTimerEvent* event) {
  if (event->timerId() != rise_.timerId()) return ControlWidget::timerEvent(event);
  rise_.stop();
  look(false);
}

}  // namespace korvane
