// A flat button with a caption, or a picture where it has no caption.
#pragma once

#include "view/press_widget.h"

namespace korvane {

class ButtonWidget : public PressWidget {
 public:
  ButtonWidget(Button& button, Face& face, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Button& button_;
};

}  // namespace korvane
