#include "view/controls/surface_widget.h"

#include <QPaintEvent>
#include <QPainter>

namespace korvane {

SurfaceWidget::SurfaceWidget(Control& control, Face& face, QWidget* parent)
    : PressWidget(control, face, parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

WId SurfaceWidget::nativeWindow() {
  setAttribute(Qt::WA_DontCreateNativeAncestors);
  return winId();
}

void SurfaceWidget::paintEvent(QPaintEvent* event) {
  QPainter(this).fillRect(event->rect(), Qt::black);
}

}  // namespace korvane
