#include "view/controls/control_widget.h"

#include <QTimer>

#include "view/controls/button_widget.h"
#include "view/controls/check_widget.h"
#include "view/controls/control_drag.h"
#include "view/controls/frame_widget.h"
#include "view/controls/grid_widget.h"
#include "view/controls/image_widget.h"
#include "view/controls/label_widget.h"
#include "view/controls/picture_area_widget.h"
#include "view/controls/progress_widget.h"
#include "view/controls/sheet_widget.h"
#include "view/controls/slider_widget.h"
#include "view/controls/surface_widget.h"
#include "view/controls/text_widget.h"

namespace korvane {

ControlWidget::ControlWidget(Control& control, Face& face, QWidget* parent)
    : QWidget(parent), control_(control), face_(face) {
  setObjectName(control.index < 0 ? control.name
                                  : control.name + u'(' + QString::number(control.index) + u')');
  setAccessibleName(control.spokenName);
  setEnabled(control.enabled());
  setToolTip(control.toolTip());
  setVisible(control.visible());
}

ControlWidget::~ControlWidget() = default;

bool ControlWidget::event(QEvent* event) {
  if (!control_.draggable) {
    drag_.reset();
    return QWidget::event(event);
  }
  if (!drag_) drag_ = std::make_unique<ControlDrag>(control_, face_);
  return drag_->takes(*event) || QWidget::event(event);
}

void ControlWidget::mirror(Aspect aspect) {
  switch (aspect) {
    case Aspect::Visible:
      setVisible(control_.visible());
      break;
    case Aspect::Enabled:
      setEnabled(control_.enabled());
      update();
      break;
    case Aspect::Rect:
      place();
      break;
    case Aspect::Caption:
      setAccessibleName(control_.spokenName);
      setToolTip(control_.toolTip());
      if (face_.captionDelayMs > 0)
        QTimer::singleShot(face_.captionDelayMs, this, [this] { update(); });
      else
        update();
      break;
    case Aspect::Picture:
    case Aspect::Colours:
    case Aspect::Value:
    case Aspect::Rows:
    case Aspect::Active:
    case Aspect::Focus:
      update();
      break;
    case Aspect::Tag:
    case Aspect::Interval:
    case Aspect::Shown:
    case Aspect::Pointer:
      break;
  }
}

void ControlWidget::place() {
  setGeometry(face_.px(control_.rect()));
}

ControlWidget* makeWidget(Control& control, Face& face, QWidget* parent) {
  switch (control.kind) {
    case Kind::Image:
      return new ImageWidget(control, face, parent);
    case Kind::Label:
      return new LabelWidget(static_cast<Label&>(control), face, parent);
    case Kind::Button:
      return new ButtonWidget(static_cast<Button&>(control), face, parent);
    case Kind::Slider:
      return new SliderWidget(static_cast<Slider&>(control), face, parent);
    case Kind::Grid:
      return new GridWidget(static_cast<Grid&>(control), face, parent);
    case Kind::Sheet:
      return new SheetWidget(static_cast<Sheet&>(control), face, parent);
    case Kind::Progress:
      return new ProgressWidget(static_cast<Progress&>(control), face, parent);
    case Kind::Frame:
      return new FrameWidget(control, face, parent);
    case Kind::Text:
      return new TextWidget(static_cast<TextBox&>(control), face, parent);
    case Kind::Check:
      return new CheckWidget(static_cast<Check&>(control), face, parent);
    case Kind::PictureArea:
      return new PictureAreaWidget(static_cast<PictureArea&>(control), face, parent);
    case Kind::Surface:
      return new SurfaceWidget(static_cast<Surface&>(control), face, parent);
    case Kind::Timer:
      return nullptr;
  }
  Q_UNREACHABLE();
}

}  // namespace korvane
