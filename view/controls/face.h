// What all widgets of one form share.
#pragma once

#include <QRect>
#include <functional>

#include "view/drawing/picture_cache.h"

class QWidget;

namespace korvane {

class Bubble;

// What the widgets of all forms of the window share.
struct Touch {
  bool singlePress = false;                   // one tap in a list activates its row
  const QWidget* lastPressed = nullptr;       // a double press counts only where the first one fell
  std::function<void(TextBox&)> textTouched;  // and nobody has heard its Click
};

struct Face {
  PictureCache& pictures;
  Touch& touch;
  double scale = 1;        // device pixels of one form unit
  int captionDelayMs = 0;  // a caption that changes again sooner is not painted
  Bubble* bubble = nullptr;

  double px(double units) const { return units * scale; }
  // Edges are rounded one by one, so that neighbours stay neighbours.
  QRect px(const Rect& rect) const {
    const auto at = [this](int units) { return static_cast<int>(std::lround(units * scale)); };
    return QRect(QPoint(at(rect.left), at(rect.top)),
                 QPoint(at(rect.right()) - 1, at(rect.bottom()) - 1));
  }
};

}  // namespace korvane
