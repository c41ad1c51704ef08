#include "view/controls/check_widget.h"

#include <QPainter>

#include "view/drawing/style.h"

namespace korvane {

CheckWidget::CheckWidget(Check& check, Face& face, QWidget* parent)
    : PressWidget(check, face, parent), check_(check) {}

void CheckWidget::clicked(bool) {
  check_.checked = !check_.checked();
  fire({Event::Click});
}

void CheckWidget::paintEvent(QPaintEvent*) {
  const Colours& colours = check_.colours();
  const double side = std::min<double>(height(), face().px(44));
  const QRectF box(face().px(4), (height() - side) / 2, side, side);
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.38);
  const QColor body =
      check_.checked() ? style::kAccent : style::mixed(style::kCard, Qt::white, 0.06);
  if (looksPressed())
    style::pressedCard(painter, box, side / 4, body);
  else
    style::card(painter, box, side / 4, body);
  if (check_.checked()) {
    painter.setPen(QPen(style::kDark, side / 9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&box](double x, double y) {
      return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    const QPointF mark[] = {at(0.26, 0.53), at(0.43, 0.69), at(0.75, 0.33)};
    painter.drawPolyline(mark, 3);
  }
  painter.setPen(style::colour(colours.fore, style::kText));
  painter.setFont(style::font(face().px(28)));
  const QRectF text(box.right() + face().px(16), 0, width() - box.right() - face().px(16),
                    height());
  painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(check_.caption(), Qt::ElideRight,
                                                    static_cast<int>(text.width())));
}

}  // namespace korvane
