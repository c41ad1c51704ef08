// A slider with a catch area of its whole rectangle. A tap on the groove jumps there.
#pragma once

#include "view/controls/control_widget.h"

namespace korvane {

class SliderWidget : public ControlWidget {
 public:
  SliderWidget(Slider& slider, Face& face, QWidget* parent);
  void mirror(Aspect aspect) override;
  void cancelPress() override;

  // In the widget's pixels: the thumb's centre now, and where it would be for a value.
  QPoint thumb() const { return pointOf(slider_.value()); }
  QPoint pointOf(double value) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  double along(QPointF point) const;  // pixels from the groove's low end
  double grooveLength() const;
  double share(double value) const;  // of the range, 0 to 1
  void moveTo(QPointF finger);
  void release();
  void showBubble();

  Slider& slider_;
  bool held_ = false;
  double grip_ = 0;  // from the finger to the thumb's centre, pixels
};

}  // namespace korvane
