// The look of what the theme's pictures do not draw: colours, fonts, cards.
#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>

#include "core/form/control.h"

namespace korvane {

namespace style {

inline const QColor kGround(0x10, 0x14, 0x1A);
inline const QColor kCard(0x1B, 0x24, 0x2E);
inline const QColor kText(0xEE, 0xF2, 0xF6);
inline const QColor kDark(0x10, 0x14, 0x1C);
inline const QColor kAccent(0xF5, 0xB8, 0x5F);

QColor colour(Colour bgr);
QColor colour(const std::optional<Colour>& bgr, const QColor& standard);
QColor readable(const QColor& ground);  // the light or the dark ink, whichever reads better on it
QColor mixed(const QColor& under, const QColor& over, double share);

// A font of that many device pixels of height.
QFont font(double pixels, int weight = QFont::Medium, bool italic = false);

// A raised body: soft gradient of `body`, a hairline that is brighter at its top edge.
void card(QPainter& painter, const QRectF& rect, double radius, const QColor& body);
// The same body pushed in.
void pressedCard(QPainter& painter, const QRectF& rect, double radius, const QColor& body);
// A sunk ground for typed text: dark ones a little darker, light ones as they are, with a hairline.
void field(QPainter& painter, const QRectF& rect, double radius, const QColor& body);

}  // namespace style
}  // namespace korvane
