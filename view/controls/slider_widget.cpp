#include "view/controls/slider_widget.h"

#include <QMouseEvent>
#include <QPainter>

#include "view/controls/bubble.h"
#include "view/drawing/style.h"

namespace korvane {
namespace {

constexpr double kEnd = 24;  // the groove's distance from the widget's ends, form units
constexpr double kGroove = 10;
constexpr double kKnob = 17;  // radius

}  // namespace

SliderWidget::SliderWidget(Slider& slider, Face& face, QWidget* parent)
    : ControlWidget(slider, face, parent), slider_(slider) {}

void SliderWidget::mirror(Aspect aspect) {
  ControlWidget::mirror(aspect);
  if (aspect == Aspect::Value && held_) showBubble();
}

double SliderWidget::grooveLength() const {
  return std::max(1.0, (slider_.vertical ? height() : width()) - 2 * face().px(kEnd));
}

double SliderWidget::along(QPointF point) const {
  return (slider_.vertical ? point.y() : point.x()) - face().px(kEnd);
}

double SliderWidget::share(double value) const {
  const double range = slider_.maximum() - slider_.minimum();
  if (!(range != 0)) return 0;
  return std::clamp((value - slider_.minimum()) / range, 0.0, 1.0);
}

QPoint SliderWidget::pointOf(double value) const {
  const int at = static_cast<int>(face().px(kEnd) + share(value) * grooveLength());
  return slider_.vertical ? QPoint(width() / 2, at) : QPoint(at, height() / 2);
}

void SliderWidget::moveTo(QPointF finger) {
  const double range = slider_.maximum() - slider_.minimum();
  const double to =
      slider_.minimum() + std::clamp((along(finger) + grip_) / grooveLength(), 0.0, 1.0) * range;
  const double before = slider_.value();
  slider_.moveTo(std::abs(range) < 2 ? to : std::round(to));
  if (slider_.value() != before) fire({Event::Scroll});
}

void SliderWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  face().touch.lastPressed = this;
  held_ = true;
  const QPoint at = thumb();
  const double off = along(at) - along(event->position());
  grip_ = std::abs(off) <= face().px(2 * kKnob) ? off : 0;
  fire({Event::Press});
  moveTo(event->position());
  update();
  showBubble();
}

void SliderWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (face().touch.lastPressed == this) mousePressEvent(event);
}

void SliderWidget::mouseMoveEvent(QMouseEvent* event) {
  if (held_) moveTo(event->position());
}

void SliderWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) release();
}

// What the finger has moved stays moved, so that who waits for the release hears it.
void SliderWidget::cancelPress() {
  release();
}

void SliderWidget::hideEvent(QHideEvent* event) {
  held_ = false;
  if (face().bubble) face().bubble->hide();
  ControlWidget::hideEvent(event);
}

void SliderWidget::release() {
  if (!held_) return;
  held_ = false;
  if (face().bubble) face().bubble->hide();
  update();
  fire({Event::Release});
}

void SliderWidget::showBubble() {
  if (!face().bubble) return;
  const QPoint at = mapTo(face().bubble->parentWidget(), thumb());
  if (!slider_.bubble().isEmpty())
    face().bubble->showLetter(slider_.bubble(), at);
  else if (!slider_.text().isEmpty())
    face().bubble->showText(slider_.text(), at);
  else
    face().bubble->hide();
}

void SliderWidget::paintEvent(QPaintEvent*) {
  const Colours& colours = slider_.colours();
  const QColor off =
      style::colour(colours.off ? colours.off : colours.back, QColor(0x2B, 0x36, 0x42));
  const QColor on = style::colour(colours.on, style::kAccent);
  const QColor knob = style::colour(colours.knob, style::kText);
  const double thick = face().px(kGroove);
  const double end = face().px(kEnd) - thick / 2;
  const bool upright = slider_.vertical;
  const QRectF groove = upright ? QRectF((width() - thick) / 2, end, thick, height() - 2 * end)
                                : QRectF(end, (height() - thick) / 2, width() - 2 * end, thick);
  const QPointF centre = thumb();
  QRectF filled = groove;  // from the lesser value on
  const bool grows = slider_.maximum() >= slider_.minimum();
  if (upright)
    grows ? filled.setBottom(centre.y()) : filled.setTop(centre.y());
  else
    grows ? filled.setRight(centre.x()) : filled.setLeft(centre.x());

  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.38);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(off);
  painter.drawRoundedRect(groove, thick / 2, thick / 2);
  painter.setBrush(on);
  painter.drawRoundedRect(filled, thick / 2, thick / 2);
  const double radius = face().px(held_ ? kKnob * 1.25 : kKnob);
  if (held_) {
    QColor halo = on;
    halo.setAlphaF(0.22F);
    painter.setBrush(halo);
    painter.drawEllipse(centre, radius * 1.7, radius * 1.7);
  }
  painter.setBrush(QColor(0, 0, 0, 90));
  painter.drawEllipse(centre + QPointF(0, face().px(2)), radius + face().px(1),
                      radius + face().px(1));
  QLinearGradient round(centre - QPointF(0, radius), centre + QPointF(0, radius));
  round.setColorAt(0, style::mixed(knob, Qt::white, 0.35));
  round.setColorAt(1, style::mixed(knob, Qt::black, 0.12));
  painter.setBrush(round);
  painter.drawEllipse(centre, radius, radius);
}

}  // namespace korvane
