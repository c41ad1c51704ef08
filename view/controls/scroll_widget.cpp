#include "view/controls/scroll_widget.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

namespace korvane {
namespace {

constexpr int kFrameMs = 16;
constexpr int kIndicatorMs = 700;
constexpr double kSlack = 12;  // form units a tap may wander

}  // namespace

ScrollWidget::ScrollWidget(Control& control, Face& face, QWidget* parent)
    : ControlWidget(control, face, parent) {
  clock_.start();
}

void ScrollWidget::jumpTo(double offset) {
  frame_.stop();
  scroll_.jumpTo(offset);
}

void ScrollWidget::press(QPoint at, bool second) {
  face().touch.lastPressed = this;
  held_ = true;
  dragged_ = false;
  caught_ = scroll_.moving();
  second_ = second;
  pressedAt_ = at;
  frame_.stop();
  scroll_.press(at.y(), clock_.elapsed());
  if (caught_) return;
  showPress(at);
  repaint();
}

void ScrollWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) press(event->position().toPoint(), false);
}

void ScrollWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && face().touch.lastPressed == this)
    press(event->position().toPoint(), true);
}

void ScrollWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!held_) return;
  const QPoint at = event->position().toPoint();
  if (!dragged_ && (at - pressedAt_).manhattanLength() > face().px(kSlack)) {
    dragged_ = true;
    showNoPress();
  }
  if (!dragged_) return;
  scroll_.move(at.y(), clock_.elapsed());
  showIndicator();
  scrolled();
  fingerScrolled();
}

void ScrollWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !held_) return;
  held_ = false;
  scroll_.release(clock_.elapsed());
  if (scroll_.moving()) frame_.start(kFrameMs, Qt::PreciseTimer, this);
  showNoPress();
  if (!dragged_ && !caught_) tapped(event->position().toPoint(), second_);
}

void ScrollWidget::cancelPress() {
  held_ = false;
  scroll_.release(clock_.elapsed());
  scroll_.jumpTo(scroll_.offset());
  showNoPress();
}

void ScrollWidget::wheelEvent(QWheelEvent* event) {
  scroll_.jumpTo(scroll_.offset() - event->angleDelta().y() / 120.0 * wheelStep());
  showIndicator();
  scrolled();
  fingerScrolled();
}

void ScrollWidget::showIndicator() {
  indicator_ = true;
  fade_.start(kIndicatorMs, Qt::CoarseTimer, this);
}

void ScrollWidget::timerEvent(QTimerEvent* event) {
  if (event->timerId() == frame_.timerId()) {
    if (!scroll_.step(clock_.elapsed())) frame_.stop();
    showIndicator();
    scrolled();
    fingerScrolled();
    return;
  }
  fade_.stop();
  indicator_ = false;
  update();
}

void ScrollWidget::hideEvent(QHideEvent* event) {
  frame_.stop();
  fade_.stop();
  indicator_ = false;
  cancelPress();
  ControlWidget::hideEvent(event);
}

void ScrollWidget::paintIndicator(QPainter& painter, const QRectF& area, double content,
                                  QColor ink) const {
  const double view = area.height();
  if (!indicator_ || content <= view) return;
  const double length = std::max(face().px(48), view * view / content);
  const double share = std::clamp(offset() / (content - view), 0.0, 1.0);
  const double edge = face().px(8);
  const double thick = face().px(6);
  const QRectF at(area.right() - thick - face().px(3),
                  area.top() + edge + share * (view - 2 * edge - length), thick, length);
  ink.setAlphaF(0.5F);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawRoundedRect(at, thick / 2, thick / 2);
}

}  // namespace korvane
