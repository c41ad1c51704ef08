#include "view/controls/frame_widget.h"

#include <QPainter>

#include "view/drawing/style.h"

namespace korvane {

void FrameWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style::card(painter, rect(), face().px(18),
              style::colour(control().colours().back, style::kCard));
  if (control().caption().isEmpty()) return;
  painter.setPen(style::colour(control().colours().fore, style::kText));
  painter.setFont(style::font(face().px(28), QFont::DemiBold));
  painter.drawText(QRectF(face().px(24), face().px(12), width() - face().px(48), face().px(44)),
                   Qt::AlignLeft | Qt::AlignVCenter, control().caption());
}

}  // namespace korvane
