// A sheet over a cell source. It draws the cells in view and keeps none.
#pragma once

#include <set>

#include "view/controls/scroll_widget.h"

namespace korvane {

class SheetWidget : public ScrollWidget {
 public:
  SheetWidget(Sheet& sheet, Face& face, QWidget* parent);
  void prepare() override;  // its letters
  void mirror(Aspect aspect) override;
  void place() override;

  QRect cellRect(int cell) const;  // in the widget's pixels, also of a cell out of view
  void bringIntoView(int cell);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void scrolled() override;  // sets the sheet's top
  void fingerScrolled() override { fire({Event::Scroll}); }
  void showPress(QPoint at) override;
  void showNoPress() override;
  void tapped(QPoint at, bool second) override;
  double wheelStep() const override;

 private:
  void measure();  // columns and mostTop from the cells and the size
  void cellsChanged();
  void mark(int cell);
  int cellAt(QPoint at) const;  // -1 for a gap
  // The place that is painted of a cell, less than its rectangle by half a gap at each edge.
  QRect cardOf(const QRect& cell) const;
  void paintCell(QPainter& painter, int cell);
  void paintPicture(QPainter& painter, int cell, const QRect& place, const QColor& ink);
  void paintTick(QPainter& painter, const QRect& card, const QColor& disc, const QColor& mark);
  void paintEmpty(QPainter& painter);
  QColor ground() const;
  QColor ink() const;

  Sheet& sheet_;
  const CellSource* shown_ = nullptr;
  bool telling_ = false;
  int pressed_ = -1, held_ = -1, lastTap_ = -1;
  std::set<int> undrawn_;  // cells that were painted without a picture that is being drawn
};

}  // namespace korvane
