// A list over a row source. It draws the rows in view and keeps none. A tap selects a row.
#pragma once

#include <set>

#include "view/controls/grid_painter.h"
#include "view/controls/scroll_widget.h"

namespace korvane {

class GridWidget : public ScrollWidget {
 public:
  GridWidget(Grid& grid, Face& face, QWidget* parent);
  void prepare() override;  // its letters and cards
  void mirror(Aspect aspect) override;
  void place() override;

  QRect rowRect(int row) const;  // in the widget's pixels, also of a row out of view; 0 the header
  QRect cellRect(int column, int row) const;
  void bringIntoView(int row);  // leaves the active row as it is

 protected:
  void paintEvent(QPaintEvent* event) override;
  void scrolled() override;  // sets topRow
  void fingerScrolled() override { fire({Event::Scroll, 1, knownTop_}); }
  void showPress(QPoint at) override;
  void showNoPress() override { mark(0, 0); }
  void tapped(QPoint at, bool second) override;
  double wheelStep() const override { return 3 * rowHeight(); }

 private:
  void activate(int column, int row, bool second);
  void mark(int row, int column);
  void measure();  // the range of the scroll from the rows and the size
  void rowsChanged();
  void activeChanged();
  void picturesDrawn();
  int rowAt(int y) const;  // 0 the header, -1 nothing
  bool hasHeader() const;
  double rowHeight() const;

  Grid& grid_;
  const RowSource* shown_ = nullptr;
  int knownRow_ = 0, knownTop_ = 1;
  bool telling_ = false;
  int pressedRow_ = 0, pressedColumn_ = 0, lastTapRow_ = 0;
  std::set<int> undrawn_;  // rows that were painted without a picture
};

}  // namespace korvane
