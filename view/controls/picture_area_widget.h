// A picture of any file or of the theme, whole and undistorted, with rounded corners.
#pragma once

#include "view/controls/press_widget.h"

namespace korvane {

class PictureAreaWidget : public PressWidget {
 public:
  using PressWidget::PressWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korvane
