// Mirrors a form: one widget a control, made in one loop and kept in step by the form's notices.
#pragma once

#include <QHash>
#include <QTimer>

#include "view/controls/bubble.h"
#include "view/controls/control_widget.h"

namespace korvane {

class FormView : public QWidget, private FormObserver {
 public:
  // The form must live until detach().
  FormView(Form& form, PictureCache& pictures, Touch& touch, QWidget* parent);

  Form& form() const { return form_; }
  void detach();  // ends the mirroring; the form may go

  // Stands at `place` with `scale` pixels a form unit; the form is laid out to fill it.
  void fit(QRect place, double scale);
  void setRounded(bool on);  // a card; otherwise it fills its place
  QRegion outline() const;   // what it covers of its rectangle
  // For a form that shows progress: its captions are painted once a frame.
  void setCaptionDelay(int milliseconds) { face_.captionDelayMs = milliseconds; }
  // Has every control prepare, one each turn of the event loop, so that no first visit waits for
  // it.
  void prepareControls();
  void prepareBackground() { face_.pictures.prepare(form_.picture(), size(), backgroundFit()); }
  double scale() const { return face_.scale; }

  ControlWidget* widget(const Control& control) const { return widgets_.value(&control); }

  std::function<void(Form&)> shownChanged;  // `shown` or `minimised` has a new value
  std::function<void(Form&)> lifted;        // `lift` has

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  Fit backgroundFit() const { return rounded_ ? Fit::Stretch : Fit::Cover; }
  void controlChanged(Control& control, Aspect aspect) override;
  void formChanged(Form& form, Aspect aspect) override;
  void controlAdded(Control& control) override;
  void add(Control& control);
  void runTimer(Timer& timer);

  Form& form_;
  Face face_;
  Touch& touch_;
  bool rounded_ = false, fitting_ = false;
  QHash<const Control*, ControlWidget*> widgets_;
  QHash<const Control*, QTimer*> timers_;
  QPixmap background_;
};

}  // namespace korvane
