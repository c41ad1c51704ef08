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

Event PressWidget::eventAt(Event::Type type, QPointF at) const {
  const auto units = [this](double pixels) {
    return static_cast<int>(std::lround(pixels / face().scale));
  };
  return {type, 0, 0, 0, {}, units(at.x()), units(at.y())};
}

void PressWidget::fingerDown(QPointF, bool second) {
  face().touch.lastPressed = this;
  held_ = true;
  second_ = second;
  sincePress_.start();
  rise_.stop();
  look(true);
  fire({Event::Press});
}

void PressWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) fingerDown(event->position(), false);
}

void PressWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second tap of a double press on what has just gone is meant for nobody.
  if (event->button() == Qt::LeftButton && face().touch.lastPressed == this)
    fingerDown(event->position(), true);
}

void PressWidget::mouseMoveEvent(QMouseEvent* event) {
  fingerMoved(event->position());
}

void PressWidget::fingerMoved(QPointF at) {
  if (held_) fire(eventAt(Event::Move, at));
}

void PressWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) fingerUp(event->position());
}

void PressWidget::fingerUp(QPointF at) {
  if (!held_) return;
  held_ = false;
  const qint64 left = kSeenMs - sincePress_.elapsed();
  if (left > 0)
    rise_.start(static_cast<int>(left), this);
  else
    look(false);
  fire({Event::Release});
  fingerLeft(at, second_);
}

void PressWidget::fingerLeft(QPointF at, bool second) {
  if (rect().contains(at.toPoint())) clicked(second);
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
