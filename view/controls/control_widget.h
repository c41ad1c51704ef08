// A widget that mirrors one control.
#pragma once

#include <QWidget>
#include <memory>

#include "core/form/form.h"
#include "view/controls/face.h"

namespace korvane {

class ControlDrag;

class ControlWidget : public QWidget {
 public:
  ControlWidget(Control& control, Face& face, QWidget* parent);
  ~ControlWidget() override;

  Control& control() const { return control_; }

  // Takes over what has changed; repaints only what shows.
  virtual void mirror(Aspect aspect);
  // Takes the place of the control's rectangle at the present scale.
  virtual void place();
  // Draws ahead, out of sight, what the next paint would have to draw first.
  virtual void prepare() {}
  // The form goes: nothing of it, and of what its control was given, is used any more.
  virtual void detach() {}
  // The finger's press is taken back: nothing fires at its release.
  virtual void cancelPress() {}
  // Whether a text of the last paint ended in dots, for want of room.
  bool cut() const { return cut_; }

 protected:
  bool fire(const Event& event) { return control_.form.fire(control_, event); }
  Face& face() const { return face_; }
  void setCut(bool cut) { cut_ = cut; }
  bool event(QEvent* event) override;

 private:
  Control& control_;
  Face& face_;
  bool cut_ = false;
  std::unique_ptr<ControlDrag> drag_;  // while the control is draggable
};

// The widget for the kind of the control; null for a timer.
ControlWidget* makeWidget(Control& control, Face& face, QWidget* parent);

}  // namespace korvane
