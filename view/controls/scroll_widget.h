// A widget over a content that is higher than it: a drag scrolls and coasts, a press catches what
// coasts, the wheel scrolls, and a mark at the right edge shows the place while it moves.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>

#include "view/controls/control_widget.h"
#include "view/controls/kinetic_scroll.h"

namespace korvane {

class ScrollWidget : public ControlWidget {
 public:
  ScrollWidget(Control& control, Face& face, QWidget* parent);
  void cancelPress() override;

 protected:
  // The offset has changed, by whatever: the control is told, the widget repainted.
  virtual void scrolled() = 0;
  // A finger, or what it has thrown, has moved the content. Yields.
  virtual void fingerScrolled() = 0;
  // The finger is down there, and what it would tap looks so at once; or nothing any more.
  virtual void showPress(QPoint at) = 0;
  virtual void showNoPress() = 0;
  // A press that moved nothing has ended there; `second` for the second of two. Yields.
  virtual void tapped(QPoint at, bool second) = 0;
  virtual double wheelStep() const = 0;  // pixels of one notch

  void setRange(double content, double view) { scroll_.setRange(content - view, view); }
  double offset() const { return scroll_.offset(); }  // pixels; beyond the range at the ends
  void jumpTo(double offset);                         // nothing coasts any more

  // The mark in `area`, whose top is `offset` pixels below that of `content` pixels.
  void paintIndicator(QPainter& painter, const QRectF& area, double content, QColor ink) const;

  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void press(QPoint at, bool second);
  void showIndicator();

  KineticScroll scroll_;
  QElapsedTimer clock_;
  QBasicTimer frame_, fade_;
  bool held_ = false, dragged_ = false, caught_ = false, second_ = false;
  bool indicator_ = false;
  QPoint pressedAt_;
};

}  // namespace korvane
