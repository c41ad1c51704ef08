#include "view/button_widget.h"

#include <QPainter>

#include "view/style.h"

namespace korvane {

ButtonWidget::ButtonWidget(Button& button, Face& face, QWidget* parent)
    : PressWidget(button, face, parent), button_(button) {}

void ButtonWidget::paintEvent(QPaintEvent*) {
  const Colours& colours = button_.colours();
  const QColor standard =
      button_.accent ? style::kAccent : style::mixed(style::kCard, Qt::white, 0.06);
  const bool pressed = looksPressed() && colours.selected;
  const QColor body = style::colour(pressed ? colours.selected : colours.back, standard);
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.38);
  const double radius = face().px(14);
  if (looksPressed())
    style::pressedCard(painter, rect(), radius, body);
  else
    style::card(painter, rect(), radius, body);

  const QRectF inner = QRectF(rect()).adjusted(face().px(12), 0, -face().px(12), 0);
  if (!button_.picture().empty() && button_.caption().isEmpty()) {
    const QPixmap picture = face().pictures.pixmap(button_.picture(), size() * 7 / 10);
    painter.drawPixmap((width() - picture.width()) / 2, (height() - picture.height()) / 2, picture);
    return;
  }
  painter.setPen(
      style::colour(pressed ? colours.selectedFore : colours.fore, style::readable(body)));
  painter.setFont(style::font(face().px(button_.fontUnits()), QFont::DemiBold));
  if (painter.fontMetrics().horizontalAdvance(button_.caption()) <= inner.width()) {
    painter.drawText(inner, Qt::AlignCenter | Qt::TextSingleLine, button_.caption());
    return;
  }
  painter.drawText(inner, int(Qt::AlignCenter) | Qt::TextWordWrap, button_.caption());
}

}  // namespace korvane
