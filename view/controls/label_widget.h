// A text; what does not fit ends in dots.
#pragma once

#include "view/controls/press_widget.h"

namespace korvane {

class LabelWidget : public PressWidget {
 public:
  LabelWidget(Label& label, Face& face, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Label& label_;
};

}  // namespace korvane
