#include "view/controls/button_widget.h"

#include <QPainter>

#include "view/drawing/style.h"

namespace korvane {
namespace {

constexpr int kMargin = 12, kGap = 14, kRing = 5;  // form units
// From these shapes on the icon stands before the caption: of a low button, and of any.
constexpr double kWideWhenLow = 1.5, kWide = 2.2;
constexpr int kLow = 120;                                 // form units
constexpr double kIconShare = 0.46;                       // of the height, above a caption
constexpr double kSmallestShare = 0.6, kShareStep = 0.1;  // of a caption's own size
constexpr int kLargestIcon = 128;                         // form units

}  // namespace

ButtonWidget::ButtonWidget(Button& button, Face& face, QWidget* parent)
    : PressWidget(button, face, parent), button_(button) {}

void ButtonWidget::mirror(Aspect aspect) {
  PressWidget::mirror(aspect);
  if (aspect == Aspect::Picture) drawAhead();
}

void ButtonWidget::place() {
  PressWidget::place();
  drawAhead();
}

void ButtonWidget::drawAhead() {
  if (button_.picture().empty() || button_.caption().isEmpty()) return;
  const int side = static_cast<int>(iconSide());
  face().pictures.prepare(button_.picture(), QSize(side, side) * devicePixelRatio());
}

bool ButtonWidget::wide() const {
  return width() > (height() < face().px(kLow) ? kWideWhenLow : kWide) * height();
}

// Of the picture of a button that has a caption too.
double ButtonWidget::iconSide() const {
  const double inner = width() - 2 * face().px(kMargin);
  return std::min({height() * (wide() ? 0.7 : kIconShare), double(face().px(kLargestIcon)),
                   wide() ? inner / 3 : inner});
}

void ButtonWidget::paintEvent(QPaintEvent*) {
  const Colours& colours = button_.colours();
  const bool lit = looksPressed() && colours.selected;
  const QColor standard =
      button_.look.accent ? style::kAccent : style::mixed(style::kCard, Qt::white, 0.06);
  const QColor body = style::colour(lit ? colours.selected : colours.back, standard);
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.38);
  const double radius = face().px(14);
  if (looksPressed() && !lit)
    style::pressedCard(painter, rect(), radius, body);
  else
    style::card(painter, rect(), radius, body);
  if (button_.marked()) drawRing(painter, radius);

  painter.setPen(style::colour(lit ? colours.selectedFore : colours.fore, style::readable(body)));
  painter.setFont(style::font(face().px(button_.fontUnits()), QFont::DemiBold));
  const QRectF inner = QRectF(rect()).adjusted(face().px(kMargin), 0, -face().px(kMargin), 0);
  if (button_.picture().empty()) return drawCaption(painter, inner, Qt::AlignCenter);
  if (button_.caption().isEmpty()) return drawPicture(painter, rect(), size() * 7 / 10);
  drawIconAndCaption(painter, inner);
}

void ButtonWidget::drawRing(QPainter& painter, double radius) {
  const double wide = face().px(kRing);
  painter.setPen(QPen(style::colour(button_.colours().on, style::kAccent), wide));
  painter.setBrush(Qt::NoBrush);
  const QRectF ring = QRectF(rect()).adjusted(wide / 2, wide / 2, -wide / 2, -wide / 2);
  painter.drawRoundedRect(ring, radius, radius);
}

void ButtonWidget::drawPicture(QPainter& painter, const QRectF& area, QSize size) {
  const Picture& normal = button_.picture();
  const auto partner = looksPressed() ? face().pictures.pressedPartner(normal) : std::nullopt;
  QPixmap picture = face().pictures.pixmap(partner ? *partner : normal, size * devicePixelRatio());
  picture.setDevicePixelRatio(devicePixelRatio());
  const QSizeF shown = picture.deviceIndependentSize();
  painter.drawPixmap(QPointF(std::floor(area.center().x() - shown.width() / 2),
                             std::floor(area.center().y() - shown.height() / 2)),
                     picture);
}

void ButtonWidget::drawIconAndCaption(QPainter& painter, const QRectF& inner) {
  const double gap = face().px(kGap);
  const double side = iconSide();
  const QSize icon(static_cast<int>(side), static_cast<int>(side));
  if (wide()) {
    drawPicture(painter, {inner.left(), 0, side, double(height())}, icon);
    return drawCaption(painter, inner.adjusted(side + gap, 0, 0, 0),
                       Qt::AlignLeft | Qt::AlignVCenter);
  }
  const double line = painter.fontMetrics().height();
  const double lines =
      painter.fontMetrics().horizontalAdvance(button_.caption()) > inner.width() ? 2 : 1;
  const double top = std::max(0.0, (height() - side - gap / 2 - lines * line) / 2);
  drawPicture(painter, {inner.left(), top, inner.width(), side}, icon);
  const double below = top + side + gap / 2;
  drawCaption(painter,
              {inner.left(), below, inner.width(), std::min(lines * line, height() - below)},
              Qt::AlignCenter);
}

// In lines as they fit, then smaller, then cut.
void ButtonWidget::drawCaption(QPainter& painter, const QRectF& area, Qt::Alignment alignment) {
  const QString& caption = button_.caption();
  const int wrapped = int(alignment) | Qt::TextWordWrap;
  const auto fits = [&](int flags) {
    const QRectF needs = painter.boundingRect(area, flags, caption);
    return needs.width() <= area.width() && needs.height() <= area.height() + 1;
  };
  const double full = painter.font().pixelSize();
  for (double share = 1; share > kSmallestShare; share -= kShareStep) {
    QFont smaller = painter.font();
    smaller.setPixelSize(std::max(1, static_cast<int>(full * share)));
    painter.setFont(smaller);
    for (const int flags : {int(alignment) | Qt::TextSingleLine, wrapped})
      if (fits(flags)) return painter.drawText(area, flags, caption);
  }
  painter.drawText(
      area, int(alignment) | Qt::TextSingleLine,
      painter.fontMetrics().elidedText(caption, Qt::ElideRight, static_cast<int>(area.width())));
}

}  // namespace korvane
