// A widget that is pressed with a finger: Press, Release, Click and DblClick.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>

#include "view/controls/control_widget.h"

namespace korvane {

class PressWidget : public ControlWidget {
 public:
  using ControlWidget::ControlWidget;
  void mirror(Aspect aspect) override;
  void cancelPress() override;

 protected:
  // True while the pressed look is to be shown: as long as the finger is down, and long enough to
  // be seen after a short tap.
  bool looksPressed() const { return looksPressed_; }
  // A tap has ended on it; `second` for the second of two. Fires Click or DblClick. Yields.
  virtual void clicked(bool second);

  // A finger, of the mouse or of a touch, in the widget's pixels. Each fires its event. Yields.
  virtual void fingerDown(QPointF at, bool second);
  virtual void fingerMoved(QPointF at);
  void fingerUp(QPointF at);
  // After Release: what a finger that left there means. Yields.
  virtual void fingerLeft(QPointF at, bool second);

  // An event at a place of the widget, in form units.
  Event eventAt(Event::Type type, QPointF at) const;

  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void look(bool pressed);

  bool held_ = false, second_ = false, looksPressed_ = false;
  QElapsedTimer sincePress_;
  QBasicTimer rise_;
};

}  // namespace korvane
