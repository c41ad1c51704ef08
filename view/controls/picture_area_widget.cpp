#include "view/controls/picture_area_widget.h"

#include <QPainter>
#include <QPainterPath>

#include "view/drawing/style.h"

namespace korvane {

void PictureAreaWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (control().colours().back) {
    painter.fillRect(rect(), style::colour(*control().colours().back));
  }
  const QPixmap picture = face().pictures.pixmap(control().picture(), size());
  if (picture.isNull()) return;
  const QRectF at(QPointF((width() - picture.width()) / 2.0, (height() - picture.height()) / 2.0),
                  picture.size());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  QBrush brush(picture);
  brush.setTransform(QTransform::fromTranslate(at.left(), at.top()));
  painter.setBrush(brush);
  painter.drawRoundedRect(at, face().px(10), face().px(10));
}

}  // namespace korvane
