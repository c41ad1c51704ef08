#include "view/drawing/style.h"

#include "core/palette.h"

namespace korvane::style {
namespace {

constexpr float kLight = 0.7F;

Colour bgrOf(const QColor& of) {
  return static_cast<Colour>(of.blue() << 16 | of.green() << 8 | of.red());
}

void body(QPainter& painter, const QRectF& rect, double radius, const QColor& top,
          const QColor& bottom, double edgeTop, double edgeBottom) {
  QLinearGradient fill(rect.topLeft(), rect.bottomLeft());
  fill.setColorAt(0, top);
  fill.setColorAt(1, bottom);
  // Light falls on the upper edge of a dark body; a light one shows by the shade of its lower edge.
  const bool light = top.lightnessF() > kLight;
  const float tone = light ? 0 : 1;
  QLinearGradient edge(rect.topLeft(), rect.bottomLeft());
  edge.setColorAt(
      0, QColor::fromRgbF(tone, tone, tone, static_cast<float>(light ? edgeBottom : edgeTop)));
  edge.setColorAt(
      1, QColor::fromRgbF(tone, tone, tone, static_cast<float>(light ? edgeTop : edgeBottom)));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QBrush(edge), 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

}  // namespace

QColor colour(Colour bgr) {
  return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>(bgr >> 8 & 0xFF),
                static_cast<int>(bgr >> 16 & 0xFF));
}

QColor colour(const std::optional<Colour>& bgr, const QColor& standard) {
  return bgr ? colour(*bgr) : standard;
}

QColor readable(const QColor& ground) {
  return contrast(bgrOf(kText), bgrOf(ground)) >= contrast(bgrOf(kDark), bgrOf(ground)) ? kText
                                                                                        : kDark;
}

QColor mixed(const QColor& under, const QColor& over, double share) {
  const auto part = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return QColor(part(under.red(), over.red()), part(under.green(), over.green()),
                part(under.blue(), over.blue()));
}

QFont font(double pixels, int weight, bool italic) {
  QFont font(u"Inter"_s);
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
  font.setWeight(QFont::Weight(weight));
  font.setItalic(italic);
  return font;
}

void card(QPainter& painter, const QRectF& rect, double radius, const QColor& of) {
  body(painter, rect, radius, mixed(of, Qt::white, 0.055), mixed(of, Qt::black, 0.07), 0.16, 0.04);
}

void pressedCard(QPainter& painter, const QRectF& rect, double radius, const QColor& of) {
  body(painter, rect, radius, mixed(of, Qt::black, 0.3), mixed(of, Qt::black, 0.16), 0.03, 0.12);
}

void field(QPainter& painter, const QRectF& rect, double radius, const QColor& of) {
  const bool light = of.lightnessF() > 0.5;
  if (!light) return pressedCard(painter, rect, radius, of);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(mixed(of, Qt::black, 0.22), 1));
  painter.setBrush(mixed(of, Qt::black, 0.02));
  painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

}  // namespace korvane::style
