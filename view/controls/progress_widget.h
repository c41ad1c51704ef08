// A bar of how far a work is; its text changes colour where the bar ends.
#pragma once

#include "view/controls/control_widget.h"

namespace korvane {

class ProgressWidget : public ControlWidget {
 public:
  ProgressWidget(Progress& progress, Face& face, QWidget* parent)
      : ControlWidget(progress, face, parent), progress_(progress) {}

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Progress& progress_;
};

}  // namespace korvane
