// A native area that a player or a browser draws into.
#pragma once

#include "view/controls/press_widget.h"

namespace korvane {

class SurfaceWidget : public PressWidget {
 public:
  SurfaceWidget(Control& control, Face& face, QWidget* parent);

  // The window system's id; made on the first call.
  WId nativeWindow();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace korvane
