#include "view/controls/grid_columns.h"

namespace korvane {

std::vector<ShownColumn> shownColumns(const std::vector<Grid::Column>& columns, int width) {
  std::vector<ShownColumn> shown;
  std::vector<double> shares;
  double given = 0;
  int givers = 0;
  for (size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].hidden) continue;
    shown.push_back({static_cast<int>(i) + 1, 0, 0, columns[i].kind, columns[i].title});
    shares.push_back(std::max(0, columns[i].width));
    given += shares.back();
    givers += shares.back() > 0;
  }
  if (shown.empty()) return {{1, 0, width, Grid::CellKind::Text, {}}};
  const double average = givers > 0 ? given / givers : 1;
  double all = 0;
  for (double& share : shares) all += share = share > 0 ? share : average;
  double left = 0;
  for (size_t i = 0; i < shown.size(); ++i) {
    shown[i].left = static_cast<int>(std::lround(left));
    left += shares[i] / all * width;
    shown[i].width = static_cast<int>(std::lround(left)) - shown[i].left;
  }
  return shown;
}

int columnAt(const std::vector<ShownColumn>& shown, int x) {
  int number = shown.front().number;
  for (const ShownColumn& column : shown)
    if (x >= column.left) number = column.number;
  return number;
}

}  // namespace korvane
