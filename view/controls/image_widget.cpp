#include "view/controls/image_widget.h"

#include <QPaintEvent>
#include <QPainter>

namespace korvane {
namespace {

QPixmap darkened(QPixmap picture) {
  QPainter painter(&picture);
  painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
  painter.fillRect(picture.rect(), QColor(0, 0, 0, 80));
  return picture;
}

}  // namespace

void ImageWidget::mirror(Aspect aspect) {
  PressWidget::mirror(aspect);
  if (aspect != Aspect::Picture) return;
  ownPressed_ = looksPressed();
  drawAhead();
}

void ImageWidget::place() {
  PressWidget::place();
  drawAhead();
}

void ImageWidget::drawAhead() {
  if (!control().picture().empty())
    face().pictures.prepare(control().picture(), size() * devicePixelRatio());
}

void ImageWidget::paintEvent(QPaintEvent*) {
  const Picture& normal = control().picture();
  if (normal.empty()) return;
  PictureCache& pictures = face().pictures;
  const QSize size = this->size() * devicePixelRatio();
  const auto partner = looksPressed() ? pictures.pressedPartner(normal) : std::nullopt;
  QPixmap picture = pictures.pixmap(partner ? *partner : normal, size);
  if (picture.isNull()) return;
  if (!looksPressed()) ownPressed_ = false;
  if (looksPressed() && !partner && !ownPressed_) picture = darkened(picture);
  picture.setDevicePixelRatio(devicePixelRatio());
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.38);
  const QSizeF shown = picture.deviceIndependentSize();
  painter.drawPixmap(QPointF(std::floor((width() - shown.width()) / 2),
                             std::floor((height() - shown.height()) / 2)),
                     picture);
}

}  // namespace korvane
