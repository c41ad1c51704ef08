#include "view/controls/label_widget.h"

#include <QPainter>

#include "view/drawing/style.h"

namespace korvane {
namespace {

constexpr double kSmallestShare = 0.75;  // of a caption's own size, before it is cut

}  // namespace

LabelWidget::LabelWidget(Label& label, Face& face, QWidget* parent)
    : PressWidget(label, face, parent), label_(label) {}

void LabelWidget::paintEvent(QPaintEvent*) {
  const Colours& colours = label_.colours();
  QPainter painter(this);
  QRectF area = rect();
  QColor ink = style::colour(colours.fore, style::kText);
  if (label_.highlighted() || colours.back) {
    const QColor ground = label_.highlighted() ? style::colour(colours.selected, style::kAccent)
                                               : style::colour(*colours.back);
    ink = label_.highlighted() ? style::colour(colours.selectedFore, style::readable(ground))
                               : style::colour(colours.fore, style::readable(ground));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(area, face().px(10), face().px(10));
    area.adjust(face().px(12), 0, -face().px(12), 0);
  }
  setCut(false);
  if (label_.caption().isEmpty()) return;
  if (!isEnabled()) ink.setAlphaF(0.45F);
  painter.setPen(ink);
  painter.setFont(
      style::font(face().px(label_.fontUnits), label_.bold ? QFont::DemiBold : QFont::Normal));
  const Qt::Alignment across = label_.align < 0   ? Qt::AlignLeft
                               : label_.align > 0 ? Qt::AlignRight
                                                  : Qt::AlignHCenter;
  if (label_.wraps) {
    painter.drawText(area, int(across | Qt::AlignVCenter) | Qt::TextWordWrap | Qt::TextDontClip,
                     label_.caption());
    return;
  }
  const double wide = painter.fontMetrics().horizontalAdvance(label_.caption());
  if (wide > area.width()) {
    QFont smaller = painter.font();
    smaller.setPixelSize(
        static_cast<int>(smaller.pixelSize() * std::max(area.width() / wide, kSmallestShare)));
    painter.setFont(smaller);
  }
  const QString shown = painter.fontMetrics().elidedText(label_.caption(), Qt::ElideRight,
                                                         static_cast<int>(area.width()));
  setCut(shown != label_.caption());
  painter.drawText(area, int(across | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
}

}  // namespace korvane
