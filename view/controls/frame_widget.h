// A card that holds other controls.
#pragma once

#include "view/controls/press_widget.h"

namespace korvane {

class FrameWidget : public PressWidget {
 public:
  using PressWidget::PressWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korvane
