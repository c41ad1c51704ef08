#include "view/controls/grid_widget.h"

#include <QPaintEvent>

#include "core/form/form.h"

namespace korvane {

GridWidget::GridWidget(Grid& grid, Face& face, QWidget* parent)
    : ScrollWidget(grid, face, parent), grid_(grid) {}

double GridWidget::rowHeight() const {
  return std::max(8.0, face().px(grid_.rowHeight() * 2));
}

bool GridWidget::hasHeader() const {
  if (!grid_.header().isEmpty()) return true;
  return std::any_of(grid_.columns().begin(), grid_.columns().end(),
                     [](const Grid::Column& c) { return !c.hidden && !c.title.isEmpty(); });
}

QRect GridWidget::rowRect(int row) const {
  const int head = hasHeader() ? static_cast<int>(std::ceil(rowHeight() * 1.15)) : 0;
  if (row == 0) return QRect(0, 0, width(), head);
  const int top = static_cast<int>(head - offset() + (row - 1) * rowHeight());
  return QRect(0, top, width(), static_cast<int>(rowHeight()));
}

QRect GridWidget::cellRect(int column, int row) const {
  QRect at = rowRect(row);
  for (const ShownColumn& shown : shownColumns(grid_.columns(), width())) {
    if (shown.number == column) at = QRect(shown.left, at.top(), shown.width, at.height());
  }
  return at;
}

int GridWidget::rowAt(int y) const {
  const int head = rowRect(0).height();
  if (y < head) return 0;
  const int row = static_cast<int>((y - head + offset()) / rowHeight()) + 1;
  return row >= 1 && row <= grid_.maxRows() ? row : -1;
}

void GridWidget::measure() {
  const double view = height() - rowRect(0).height();
  setRange(grid_.maxRows() * rowHeight(), view);
}

void GridWidget::place() {
  ScrollWidget::place();
  const int top = grid_.topRow();
  measure();
  jumpTo((top - 1) * rowHeight());
}

void GridWidget::mirror(Aspect aspect) {
  if (aspect == Aspect::Rows) rowsChanged();
  if (aspect == Aspect::Active && !telling_) activeChanged();
  if (aspect == Aspect::Visible && grid_.visible()) rowsChanged();
  ScrollWidget::mirror(aspect);
}

void GridWidget::rowsChanged() {
  measure();
  if (shown_ != &grid_.rows()) {
    shown_ = &grid_.rows();
    jumpTo((grid_.topRow() - 1) * rowHeight());
    knownRow_ = grid_.row();
    lastTapRow_ = 0;
  }
  scrolled();
}

void GridWidget::activeChanged() {
  measure();
  const bool turned = grid_.topRow() != knownTop_;
  const bool chosen = grid_.row() != knownRow_;
  knownRow_ = grid_.row();
  if (chosen) lastTapRow_ = 0;
  if (turned) {
    knownTop_ = grid_.topRow();
    jumpTo((knownTop_ - 1) * rowHeight());
    scrolled();
  }
  if (chosen || !turned) bringIntoView(knownRow_);
}

// A near row moves in by the least way, a far one to the upper third.
void GridWidget::bringIntoView(int row) {
  if (row < 1) return;
  const double view = height() - rowRect(0).height();
  const double top = (row - 1) * rowHeight();
  const double offset = this->offset();
  if (top >= offset && top + rowHeight() <= offset + view) return;
  const bool far = top < offset - view || top > offset + 2 * view;
  jumpTo(far ? top - view / 3 : top < offset ? top : top + rowHeight() - view);
  scrolled();
}

void GridWidget::scrolled() {
  const int top = std::max(1, static_cast<int>(offset() / rowHeight() + 0.02) + 1);
  if (top != knownTop_) {
    knownTop_ = top;
    telling_ = true;
    grid_.topRow = top;
    telling_ = false;
  }
  update();
}

void GridWidget::mark(int row, int column) {
  if (row == pressedRow_ && column == pressedColumn_) return;
  pressedRow_ = row;
  pressedColumn_ = column;
  update();
}

void GridWidget::showPress(QPoint at) {
  const int row = rowAt(at.y());
  if (row < 0) return;
  mark(row == 0 ? -1 : row, columnAt(shownColumns(grid_.columns(), width()), at.x()));
}

void GridWidget::tapped(QPoint at, bool second) {
  const int row = rowAt(at.y());
  const std::vector<ShownColumn> columns = shownColumns(grid_.columns(), width());
  const int column = columnAt(columns, at.x());
  if (row < 0) return;
  second = second && row == lastTapRow_;
  lastTapRow_ = row;
  if (row == 0) {
    if (!second) fire({Event::Click, column, 0});
    return;
  }
  activate(column, row, second);
}

void GridWidget::activate(int column, int row, bool second) {
  const std::vector<Grid::Column>& columns = grid_.columns();
  const auto at = static_cast<size_t>(column - 1);
  grid_.row = row;
  lastTapRow_ = row;
  if (at < columns.size() && columns[at].kind == Grid::CellKind::Button) {
    fire({Event::ButtonClicked, column, row});
    return;
  }
  // In a modal form a row is chosen first: it may be wanted for more than one thing.
  const bool single = face().touch.singlePress && grid_.form.role == FormRole::Main;
  if (second) {
    if (!single) fire({Event::DblClick, column, row});
    return;
  }
  const RowSource* before = &grid_.rows();
  fire({Event::Click, column, row});
  // What the click has filled anew is another list, in which this row means something else.
  if (single && before == &grid_.rows() && grid_.row() == row) fire({Event::DblClick, column, row});
}

void GridWidget::prepare() {
  if (grid_.maxRows() > 0) grab(QRect(0, 0, width(), 2 * rowHeight()).intersected(rect()));
}

void GridWidget::paintEvent(QPaintEvent* event) {
  GridView view;
  view.header = rowRect(0);
  view.list = QRect(0, view.header.height(), width(), height() - view.header.height());
  view.rowHeight = rowHeight();
  view.offset = offset();
  view.pressedRow = pressedRow_;
  view.pressedColumn = pressedColumn_;
  QPainter painter(this);
  GridPainter drawing(grid_, face(), view, painter);
  drawing.paint(event->rect());
  paintIndicator(painter, view.list, grid_.maxRows() * view.rowHeight, drawing.ink());
  setCut(drawing.cut() || (cut() && event->rect() != rect()));
  if (drawing.undrawn().empty()) return;
  undrawn_.insert(drawing.undrawn().begin(), drawing.undrawn().end());
  face().pictures.whenDrawn(this, [this] { picturesDrawn(); });
}

void GridWidget::picturesDrawn() {
  for (const int row : std::exchange(undrawn_, {})) update(rowRect(row));
}

}  // namespace korvane
