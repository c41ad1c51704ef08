#include "view/window/finger.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

namespace korvane {

QString Finger::obstacle(const ControlWidget& target, QPoint at) const {
  const Control& control = target.control();
  const Form* top = host_.topForm();
  if (host_.gate().refusing()) return u"presses are refused while a wait runs"_s;
  const bool covered = top && top != &control.form && control.form.role != FormRole::Floating;
  if (covered && target.window() == &host_.stage())
    return u"the form %1 is above it"_s.arg(top->name);
  if (!target.isVisible()) return u"it is hidden"_s;
  if (!target.isEnabled()) return u"it is not enabled"_s;
  QWidget* window = target.window();
  const QPoint point = target.mapTo(window, at);
  if (!window->rect().contains(point)) return u"it lies off the screen"_s;
  const QWidget* hit = window->childAt(point);
  if (hit == &target || (hit && target.isAncestorOf(hit))) return {};
  return u"it is covered by %1"_s.arg(hit ? hit->objectName() : window->objectName());
}

void Finger::place(const ControlWidget& target, QPoint at) {
  window_ = target.window();
  at_ = target.mapTo(target.window(), at);
}

void Finger::send(QEvent::Type type) {
  if (!window_ || !window_->windowHandle()) return;
  down_ = type == QEvent::MouseButtonPress || (type == QEvent::MouseMove && down_);
  const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, at_, window_->mapToGlobal(at_), button,
                    down_ ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(window_->windowHandle(), &event);
}

void Finger::press(const ControlWidget& target, QPoint at) {
  place(target, at);
  send(QEvent::MouseButtonPress);
}

void Finger::move(QPoint by) {
  at_ += by;
  send(QEvent::MouseMove);
}

void Finger::release() {
  if (!again_) {
    send(QEvent::MouseButtonRelease);
    return;
  }
  QWidget* hit = again_;
  again_ = nullptr;
  down_ = false;
  QMouseEvent event(QEvent::MouseButtonRelease, hit->mapFrom(window_, at_),
                    window_->mapToGlobal(at_), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(hit, &event);
}

void Finger::tap(const ControlWidget& target, QPoint at) {
  press(target, at);
  release();
}

void Finger::doubleTap(const ControlWidget& target, QPoint at) {
  tap(target, at);
  pressAgain();
  release();
}

// The window makes the second press of two out of their times; here they are two by intent.
void Finger::pressAgain() {
  QWidget* hit = window_ ? window_->childAt(at_) : nullptr;
  if (!hit || host_.gate().refusing()) return;
  down_ = true;
  again_ = hit;
  QMouseEvent event(QEvent::MouseButtonDblClick, hit->mapFrom(window_, at_),
                    window_->mapToGlobal(at_), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(hit, &event);
}

void Finger::key(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text) {
  QWindow* window = host_.stage().windowHandle();
  if (!window) return;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, qtKey, modifiers, text);
    QCoreApplication::sendEvent(window, &event);
  }
}

}  // namespace korvane
