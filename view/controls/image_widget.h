// A picture of the theme that can be pressed.
#pragma once

#include "view/controls/press_widget.h"

namespace korvane {

class ImageWidget : public PressWidget {
 public:
  using PressWidget::PressWidget;
  void mirror(Aspect aspect) override;
  void place() override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void drawAhead();
  bool ownPressed_ = false;  // the handler has shown a picture of its own for this press
};

}  // namespace korvane
