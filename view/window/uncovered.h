// What shows of a widget that others lie above.
#pragma once

#include <QRegion>

class QWidget;

namespace korvane {

struct Uncovered {
  QRegion region;       // in the widget's own pixels
  bool veiled = false;  // a DimLayer lies above, which takes all presses
};

// Of `widget`, which must lie in a window: its rectangle without those of all visible widgets above
// it there, whether they paint all of it or not. A DimLayer covers with what lies on it alone, a
// form that is a card without its corners.
Uncovered uncovered(const QWidget& widget);

}  // namespace korvane
