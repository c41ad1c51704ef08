// Draws what is in view of a list: its cost depends on the rows in view alone.
#pragma once

#include <QPainter>

#include "view/controls/face.h"
#include "view/controls/grid_columns.h"

namespace korvane {

struct GridView {
  QRect list;            // of the rows, without the header
  QRect header;          // empty for none
  double rowHeight = 1;  // pixels
  double offset = 0;     // pixels above the list's top edge
  int pressedRow = 0, pressedColumn = 0;
  double indicator = 0;  // opacity of the position mark
};

class GridPainter {
 public:
  GridPainter(const Grid& grid, const Face& face, const GridView& view, QPainter& painter);
  void paint(const QRect& dirty);

 private:
  void paintHeader();
  void paintRow(int row, const QRectF& at);
  void paintCell(const ShownColumn& column, int row, const QRectF& at, const QColor& ink);
  void paintEmpty();
  void paintIndicator();
  QFont rowFont(int row) const;

  const Grid& grid_;
  const Face& face_;
  const GridView& view_;
  QPainter& painter_;
  std::vector<ShownColumn> columns_;
  QColor ground_, ink_;
};

}  // namespace korvane
