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
};

class GridPainter {
 public:
  // Keeps references to all four.
  GridPainter(const Grid& grid, const Face& face, const GridView& view, QPainter& painter);
  void paint(const QRect& dirty);
  // Rows of which a picture shows a quiet ground, since it is still being drawn elsewhere.
  const std::vector<int>& undrawn() const { return undrawn_; }
  const QColor& ink() const { return ink_; }
  bool cut() const { return cut_; }  // a text ended in dots

 private:
  void paintHeader();
  void paintRow(int row, const QRectF& at);
  void paintCell(const ShownColumn& column, int row, const QRectF& at, const QColor& ink);
  // In one line, with dots at its end where it does not fit.
  void paintText(const QString& text, const QRectF& cell, Qt::Alignment align, const QColor& ink);
  void paintButton(const QString& text, const QRectF& key, bool down);
  void paintPicture(const Picture* picture, const QRectF& place, int row, bool down);
  void paintEmpty();
  QFont rowFont(int row) const;

  const Grid& grid_;
  const Face& face_;
  const GridView& view_;
  QPainter& painter_;
  std::vector<ShownColumn> columns_;
  QColor ground_, ink_;
  std::vector<int> undrawn_;
  bool cut_ = false;
};

}  // namespace korvane
