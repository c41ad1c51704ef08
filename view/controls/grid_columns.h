// Where the visible columns of a list stand.
#pragma once

#include <vector>

#include "core/form/control.h"

namespace korvane {

struct ShownColumn {
  int number = 1;  // of the row source
  int left = 0, width = 0;
  Grid::CellKind kind = Grid::CellKind::Text;
  QString title;
};

// Shares `width` pixels out by the columns' shares; a column without one gets the average of the
// others. A list without columns shows its first cell.
std::vector<ShownColumn> shownColumns(const std::vector<Grid::Column>& columns, int width);

// The column at x; the nearest one outside.
int columnAt(const std::vector<ShownColumn>& shown, int x);

}  // namespace korvane
