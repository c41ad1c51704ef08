// A control that follows the finger: its rectangle moves with it, within its container.
#pragma once

#include <QEvent>
#include <QPoint>

#include "core/form/form.h"
#include "view/controls/face.h"

namespace korvane {

class ControlDrag {
 public:
  ControlDrag(Control& control, const Face& face) : control_(control), face_(face) {}

  // True for what the drag keeps to itself. Fires Press at its begin and Release at its end.
  bool takes(const QEvent& event);

 private:
  void moveTo(QPoint finger);

  Control& control_;
  const Face& face_;
  QPoint from_;  // the finger on the desktop, when it came
  Rect start_;   // the control then
  bool held_ = false, moved_ = false;
};

}  // namespace korvane
