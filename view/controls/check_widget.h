// A large check mark with a caption; a tap anywhere on it turns it.
#pragma once

#include "view/controls/press_widget.h"

namespace korvane {

class CheckWidget : public PressWidget {
 public:
  CheckWidget(Check& check, Face& face, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void clicked(bool second) override;

 private:
  Check& check_;
};

}  // namespace korvane
