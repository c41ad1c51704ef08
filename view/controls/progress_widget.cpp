#include "view/controls/progress_widget.h"

#include <QPainter>

#include "view/drawing/style.h"

namespace korvane {
namespace {

constexpr double kInset = 12, kText = 28, kRounding = 10;  // form units

}  // namespace

void ProgressWidget::paintEvent(QPaintEvent*) {
  const Colours& colours = progress_.colours();
  const QColor off = style::colour(colours.off ? colours.off : colours.back,
                                   style::mixed(style::kCard, Qt::white, 0.1));
  const QColor on = style::colour(colours.on, style::kAccent);
  const double share = std::clamp(progress_.value() / 100, 0.0, 1.0);
  const int end = static_cast<int>(std::lround(share * width()));

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double text = face().px(progress_.look.text > 0 ? progress_.look.text : kText);
  painter.setFont(style::font(std::min(text, height() * 0.7)));
  const QRectF says = QRectF(rect()).adjusted(face().px(kInset), 0, -face().px(kInset), 0);
  const QString shown = painter.fontMetrics().elidedText(progress_.caption(), Qt::ElideRight,
                                                         static_cast<int>(says.width()));
  setCut(shown != progress_.caption());
  const std::pair<QRect, QColor> parts[] = {{{0, 0, end, height()}, on},
                                            {{end, 0, width() - end, height()}, off}};
  for (const auto& [part, ground] : parts) {
    painter.setClipRect(part);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), face().px(kRounding), face().px(kRounding));
    painter.setPen(style::readable(ground));
    painter.drawText(says, int(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
  }
}

}  // namespace korvane
