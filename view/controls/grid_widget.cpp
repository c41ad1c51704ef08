#include "view/controls/grid_widget.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QTimerEvent>

namespace korvane {
namespace {

constexpr int kFrameMs = 16;
constexpr int kIndicatorMs = 700;
constexpr double kSlack = 12;  // form units a tap may wander

}  // namespace

GridWidget::GridWidget(Grid& grid, Face& face, QWidget* parent)
    : ControlWidget(grid, face, parent), grid_(grid) {
  clock_.start();
}

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
  const int top = static_cast<int>(head - scroll_.offset() + (row - 1) * rowHeight());
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
  const int row = static_cast<int>((y - head + scroll_.offset()) / rowHeight()) + 1;
  return row >= 1 && row <= grid_.maxRows() ? row : -1;
}

void GridWidget::measure() {
  const double view = height() - rowRect(0).height();
  scroll_.setRange(grid_.maxRows() * rowHeight() - view, view);
}

void GridWidget::place() {
  ControlWidget::place();
  const int top = grid_.topRow();
  measure();
  scroll_.jumpTo((top - 1) * rowHeight());
}

void GridWidget::mirror(Aspect aspect) {
  if (aspect == Aspect::Rows) rowsChanged();
  if (aspect == Aspect::Active && !telling_) activeChanged();
  if (aspect == Aspect::Visible && grid_.visible()) rowsChanged();
  ControlWidget::mirror(aspect);
}

void GridWidget::rowsChanged() {
  measure();
  if (shown_ != &grid_.rows()) {
    shown_ = &grid_.rows();
    frame_.stop();
    scroll_.jumpTo((grid_.topRow() - 1) * rowHeight());
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
    frame_.stop();
    scroll_.jumpTo((knownTop_ - 1) * rowHeight());
    scrolled();
  }
  if (chosen || !turned) bringIntoView(knownRow_);
}

// A near row moves in by the least way, a far one to the upper third.
void GridWidget::bringIntoView(int row) {
  if (row < 1) return;
  const double view = height() - rowRect(0).height();
  const double top = (row - 1) * rowHeight();
  const double offset = scroll_.offset();
  if (top >= offset && top + rowHeight() <= offset + view) return;
  const bool far = top < offset - view || top > offset + 2 * view;
  scroll_.jumpTo(far ? top - view / 3 : top < offset ? top : top + rowHeight() - view);
  frame_.stop();
  scrolled();
}

void GridWidget::scrolled() {
  const int top = std::max(1, static_cast<int>(scroll_.offset() / rowHeight() + 0.02) + 1);
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

void GridWidget::press(QPoint at, bool second) {
  face().touch.lastPressed = this;
  held_ = true;
  dragged_ = false;
  caught_ = scroll_.moving();
  second_ = second;
  pressedAt_ = at;
  frame_.stop();
  scroll_.press(at.y(), clock_.elapsed());
  const int row = rowAt(at.y());
  if (caught_ || row < 0) return;
  mark(row == 0 ? -1 : row, columnAt(shownColumns(grid_.columns(), width()), at.x()));
  repaint();
}

void GridWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) press(event->position().toPoint(), false);
}

void GridWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && face().touch.lastPressed == this)
    press(event->position().toPoint(), true);
}

void GridWidget::mouseMoveEvent(QMouseEvent* event) {
  if (!held_) return;
  const QPoint at = event->position().toPoint();
  if (!dragged_ && (at - pressedAt_).manhattanLength() > face().px(kSlack)) {
    dragged_ = true;
    mark(0, 0);
  }
  if (!dragged_) return;
  scroll_.move(at.y(), clock_.elapsed());
  showIndicator();
  scrolled();
  fire({Event::Scroll, 1, grid_.topRow()});
}

void GridWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !held_) return;
  held_ = false;
  scroll_.release(clock_.elapsed());
  if (scroll_.moving()) frame_.start(kFrameMs, Qt::PreciseTimer, this);
  mark(0, 0);
  if (!dragged_ && !caught_) tap(event->position().toPoint());
}

void GridWidget::cancelPress() {
  held_ = false;
  scroll_.release(clock_.elapsed());
  scroll_.jumpTo(scroll_.offset());
  mark(0, 0);
}

void GridWidget::tap(QPoint at) {
  const int row = rowAt(at.y());
  const std::vector<ShownColumn> columns = shownColumns(grid_.columns(), width());
  const int column = columnAt(columns, at.x());
  if (row < 0) return;
  const bool second = second_ && row == lastTapRow_;
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
  if (second) {
    if (!face().touch.singlePress) fire({Event::DblClick, column, row});
    return;
  }
  const RowSource* before = &grid_.rows();
  fire({Event::Click, column, row});
  // What the click has filled anew is another list, in which this row means something else.
  if (face().touch.singlePress && before == &grid_.rows() && grid_.row() == row)
    fire({Event::DblClick, column, row});
}

void GridWidget::wheelEvent(QWheelEvent* event) {
  scroll_.jumpTo(scroll_.offset() - event->angleDelta().y() / 120.0 * 3 * rowHeight());
  showIndicator();
  scrolled();
  fire({Event::Scroll, 1, grid_.topRow()});
}

void GridWidget::showIndicator() {
  indicator_ = 1;
  fade_.start(kIndicatorMs, Qt::CoarseTimer, this);
}

void GridWidget::timerEvent(QTimerEvent* event) {
  if (event->timerId() == frame_.timerId()) {
    const int top = knownTop_;
    if (!scroll_.step(clock_.elapsed())) frame_.stop();
    showIndicator();
    scrolled();
    if (top != knownTop_) fire({Event::Scroll, 1, knownTop_});
    return;
  }
  fade_.stop();
  indicator_ = 0;
  update();
}

void GridWidget::hideEvent(QHideEvent* event) {
  frame_.stop();
  fade_.stop();
  indicator_ = 0;
  cancelPress();
  ControlWidget::hideEvent(event);
}

void GridWidget::prepare() {
  if (grid_.maxRows() > 0) grab(QRect(0, 0, width(), 2 * rowHeight()).intersected(rect()));
}

void GridWidget::paintEvent(QPaintEvent* event) {
  GridView view;
  view.header = rowRect(0);
  view.list = QRect(0, view.header.height(), width(), height() - view.header.height());
  view.rowHeight = rowHeight();
  view.offset = scroll_.offset();
  view.pressedRow = pressedRow_;
  view.pressedColumn = pressedColumn_;
  view.indicator = indicator_;
  QPainter painter(this);
  GridPainter drawing(grid_, face(), view, painter);
  drawing.paint(event->rect());
  setCut(drawing.cut() || (cut() && event->rect() != rect()));
  if (drawing.undrawn().empty()) return;
  undrawn_.insert(drawing.undrawn().begin(), drawing.undrawn().end());
  face().pictures.whenDrawn(this, [this] { picturesDrawn(); });
}

void GridWidget::picturesDrawn() {
  for (const int row : std::exchange(undrawn_, {})) update(rowRect(row));
}

}  // namespace korvane
