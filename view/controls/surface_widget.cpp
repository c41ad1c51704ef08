#include "view/controls/surface_widget.h"

#include <QPaintEvent>
#include <QPainter>

namespace korvane {

SurfaceWidget::SurfaceWidget(Surface& control, Face& face, QWidget* parent)
    : PressWidget(control, face, parent), surface_(control) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void SurfaceWidget::mirror(Aspect aspect) {
  if (aspect == Aspect::Picture) return follow();
  if (aspect == Aspect::Enabled && native_) native_->setPressed(surface_.drawerPressed());
  PressWidget::mirror(aspect);
}

void SurfaceWidget::detach() {
  released_ = true;
  native_.reset();
  frames_.follow(nullptr, VideoFit::Whole, {});
}

void SurfaceWidget::follow() {
  if (released_) return;
  const QSize room = seen_ ? (QSizeF(size()) * devicePixelRatioF()).toSize() : QSize(0, 0);
  frames_.follow(surface_.video(), surface_.fit(), room);
}

void SurfaceWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  frames_.paint(painter, event->region());
}

void SurfaceWidget::resizeEvent(QResizeEvent* event) {
  PressWidget::resizeEvent(event);
  follow();
}

void SurfaceWidget::showEvent(QShowEvent* event) {
  PressWidget::showEvent(event);
  seen_ = true;
  follow();
  if (released_ || !surface_.drawer) return;
  if (!native_ && NativeSurface::possible()) {
    native_ = std::make_unique<NativeSurface>(*this, surface_.drawer);
    native_->setPressed(surface_.drawerPressed());
  }
  if (native_) native_->show();
}

// A window that is only minimised keeps the native one, and so the player its picture.
void SurfaceWidget::hideEvent(QHideEvent* event) {
  PressWidget::hideEvent(event);
  seen_ = false;
  follow();
  if (native_ && !event->spontaneous()) native_->hide();
}

}  // namespace korvane
