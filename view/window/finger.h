// A finger on the console's window: presses, moves and keys by real events of the window system, to
// what lies at the point.
#pragma once

#include <QEvent>
#include <QPointer>

#include "view/window/window_host.h"

namespace korvane {

class Finger {
 public:
  explicit Finger(WindowHost& host) : host_(host) {}

  // Why a press at `at`, in the pixels of the control's widget, cannot reach it; empty when it can.
  QString obstacle(const ControlWidget& target, QPoint at) const;

  // At a point of the widget. Each runs the handlers before it returns. Yields.
  void press(const ControlWidget& target, QPoint at);
  void move(QPoint by);  // from where the finger is
  void release();
  void tap(const ControlWidget& target, QPoint at);
  void doubleTap(const ControlWidget& target, QPoint at);
  bool down() const { return down_; }

  // Pressed and released on the console's window; `text` is what it types.
  void key(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text);

 private:
  void place(const ControlWidget& target, QPoint at);
  void send(QEvent::Type type);
  void pressAgain();

  WindowHost& host_;
  QPointer<QWidget> window_;
  QPointer<QWidget> again_;  // the widget that holds the second press of a double tap
  QPoint at_;                // in the window
  bool down_ = false;
};

}  // namespace korvane
