// A list over a row source. It draws the rows in view and keeps none. A drag scrolls and coasts, a
// tap selects a row.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <set>

#include "view/controls/control_widget.h"
#include "view/controls/grid_painter.h"
#include "view/controls/kinetic_scroll.h"

namespace korvane {

class GridWidget : public ControlWidget {
 public:
  GridWidget(Grid& grid, Face& face, QWidget* parent);
  void prepare() override;  // its letters and cards
  void mirror(Aspect aspect) override;
  void place() override;
  void cancelPress() override;

  QRect rowRect(int row) const;  // in the widget's pixels, also of a row out of view; 0 the header
  QRect cellRect(int column, int row) const;
  void bringIntoView(int row);  // leaves the active row as it is

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void press(QPoint at, bool second);
  void tap(QPoint at);
  void activate(int column, int row, bool second);
  void mark(int row, int column);
  void measure();  // the range of the scroll from the rows and the size
  void rowsChanged();
  void activeChanged();
  void scrolled();  // sets topRow, repaints
  void showIndicator();
  void picturesDrawn();
  int rowAt(int y) const;  // 0 the header, -1 nothing
  bool hasHeader() const;
  double rowHeight() const;

  Grid& grid_;
  KineticScroll scroll_;
  QElapsedTimer clock_;
  QBasicTimer frame_, fade_;
  const RowSource* shown_ = nullptr;
  int knownRow_ = 0, knownTop_ = 1;
  bool telling_ = false, held_ = false, dragged_ = false, caught_ = false, second_ = false;
  QPoint pressedAt_;
  int pressedRow_ = 0, pressedColumn_ = 0, lastTapRow_ = 0;
  double indicator_ = 0;
  std::set<int> undrawn_;  // rows that were painted without a picture
};

}  // namespace korvane
