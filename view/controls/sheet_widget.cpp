#include "view/controls/sheet_widget.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include "view/drawing/style.h"

namespace korvane {
namespace {

constexpr Colour kChosen = 0x00FFFF;  // the ground of a chosen cell
constexpr double kTint = 0.1;         // of any other's colour in the ground of the theme
constexpr double kGap = 8, kInset = 6, kText = 24, kEmptyText = 28, kTick = 32;
constexpr double kCorner = 16, kRounding = 10;

}  // namespace

SheetWidget::SheetWidget(Sheet& sheet, Face& face, QWidget* parent)
    : ScrollWidget(sheet, face, parent), sheet_(sheet) {
  measure();
}

QColor SheetWidget::ground() const {
  return style::colour(sheet_.colours().back, style::kCard);
}

QColor SheetWidget::ink() const {
  return style::colour(sheet_.colours().fore, style::readable(ground()));
}

void SheetWidget::measure() {
  const Rect& rect = sheet_.rect();
  sheet_.columns = std::max(1, rect.width / std::max(1, sheet_.cellWidth()));
  const int rows = (sheet_.cells().count() + sheet_.columns - 1) / sheet_.columns;
  const int content = rows * sheet_.cellHeight();
  sheet_.mostTop = std::max(0, content - rect.height);
  setRange(face().px(content), face().px(rect.height));
}

// The row at the top stays there, however many columns there is room for.
void SheetWidget::place() {
  const int first = sheet_.top() / std::max(1, sheet_.cellHeight()) * sheet_.columns;
  const int columns = sheet_.columns;
  ScrollWidget::place();
  measure();
  const int top =
      columns == sheet_.columns ? sheet_.top() : first / sheet_.columns * sheet_.cellHeight();
  jumpTo(face().px(top));
  scrolled();
}

void SheetWidget::mirror(Aspect aspect) {
  if (aspect == Aspect::Rows) cellsChanged();
  if (aspect == Aspect::Active && !telling_) {
    jumpTo(face().px(sheet_.top()));
    scrolled();
  }
  ScrollWidget::mirror(aspect);
}

void SheetWidget::cellsChanged() {
  measure();
  if (std::exchange(shown_, &sheet_.cells()) != shown_) {
    jumpTo(face().px(sheet_.top()));
    lastTap_ = -1;
  } else if (offset() > face().px(sheet_.mostTop)) {
    jumpTo(offset());
  }
  scrolled();
}

void SheetWidget::scrolled() {
  telling_ = true;
  sheet_.top =
      std::clamp(static_cast<int>(std::lround(offset() / face().scale)), 0, sheet_.mostTop);
  telling_ = false;
  update();
}

double SheetWidget::wheelStep() const {
  return face().px(sheet_.cellHeight());
}

QRect SheetWidget::cellRect(int cell) const {
  const int column = cell % sheet_.columns, row = cell / sheet_.columns;
  return face()
      .px(Rect{column * sheet_.cellWidth(), row * sheet_.cellHeight(), sheet_.cellWidth(),
               sheet_.cellHeight()})
      .translated(0, -static_cast<int>(std::lround(offset())));
}

QRect SheetWidget::cardOf(const QRect& cell) const {
  const int gap = static_cast<int>(std::lround(face().px(kGap) / 2));
  return cell.adjusted(gap, gap, -gap, -gap);
}

int SheetWidget::cellAt(QPoint at) const {
  const double wide = face().px(sheet_.cellWidth()), high = face().px(sheet_.cellHeight());
  const int column = static_cast<int>(at.x() / wide);
  const int row = static_cast<int>(std::floor((at.y() + offset()) / high));
  const int near = row * sheet_.columns + column;
  if (row < 0 || column >= sheet_.columns || near >= sheet_.cells().count()) return -1;
  return cardOf(cellRect(near)).contains(at) ? near : -1;
}

void SheetWidget::bringIntoView(int cell) {
  const QRect at = cellRect(cell);
  if (at.top() >= 0 && at.bottom() < height()) return;
  jumpTo(at.top() < 0 ? offset() + at.top() : offset() + at.bottom() + 1 - height());
  scrolled();
}

void SheetWidget::mark(int cell) {
  for (const int each : {std::exchange(pressed_, cell), cell})
    if (each >= 0) update(cellRect(each));
}

void SheetWidget::showPress(QPoint at) {
  mark(cellAt(at));
  held_ = pressed_;
  if (held_ >= 0) fire({Event::Press, 0, held_});
}

void SheetWidget::showNoPress() {
  mark(-1);
  if (const int cell = std::exchange(held_, -1); cell >= 0) fire({Event::Release, 0, cell});
}

void SheetWidget::tapped(QPoint at, bool second) {
  const int cell = cellAt(at);
  second = second && cell == lastTap_;
  lastTap_ = cell;
  if (cell >= 0) fire({second ? Event::DblClick : Event::Click, 0, cell});
}

void SheetWidget::prepare() {
  if (sheet_.cells().count() > 0) grab(cellRect(0).intersected(rect()));
}

void SheetWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground());
  painter.drawRoundedRect(rect(), face().px(kCorner), face().px(kCorner));
  setCut(false);
  const int count = sheet_.cells().count();
  if (count == 0) return paintEmpty(painter);
  const double high = face().px(sheet_.cellHeight());
  const QRect& dirty = event->rect();
  const int first = std::max(0, static_cast<int>((dirty.top() + offset()) / high));
  const int last = static_cast<int>((dirty.bottom() + offset()) / high) + 1;
  // From the last one, since of the pictures that are still to be drawn the last one asked for
  // comes first.
  for (int cell = std::min(count, last * sheet_.columns) - 1; cell >= first * sheet_.columns;
       --cell)
    if (cellRect(cell).intersects(dirty)) paintCell(painter, cell);
  paintIndicator(painter, rect(), face().px(sheet_.mostTop) + height(), ink());
  if (undrawn_.empty()) return;
  face().pictures.whenDrawn(this, [this] {
    for (const int cell : std::exchange(undrawn_, {})) update(cellRect(cell));
  });
}

void SheetWidget::paintCell(QPainter& painter, int cell) {
  const QRect card = cardOf(cellRect(cell));
  const Colour back = sheet_.cells().back(cell);
  const bool chosen = back == kChosen;
  const Colours& colours = sheet_.colours();
  QColor fill = chosen ? style::colour(colours.selected, style::kAccent)
                       : style::mixed(ground(), style::colour(back), kTint);
  if (cell == pressed_) fill = style::mixed(fill, Qt::white, 0.1);
  const QColor ink =
      style::colour(chosen ? colours.selectedFore : colours.fore, style::readable(fill));
  painter.setPen(Qt::NoPen);
  painter.setBrush(fill);
  painter.drawRoundedRect(card, face().px(kRounding), face().px(kRounding));

  painter.setFont(style::font(face().px(sheet_.look.text > 0 ? sheet_.look.text : kText)));
  const QFontMetrics metrics = painter.fontMetrics();
  const int inset = static_cast<int>(face().px(kInset));
  const QRect inner = card.adjusted(inset, inset, -inset, -inset);
  const QString caption = sheet_.cells().caption(cell);
  const int line = std::min(metrics.height(), inner.height());
  paintPicture(painter, cell, inner.adjusted(0, 0, 0, -line), ink);
  const QString shown = metrics.elidedText(caption, Qt::ElideRight, inner.width());
  if (shown != caption) setCut(true);
  painter.setPen(ink);
  painter.drawText(inner.adjusted(0, inner.height() - line, 0, 0),
                   int(Qt::AlignCenter) | Qt::TextSingleLine, shown);
  if (chosen) paintTick(painter, card, ink, fill);
}

void SheetWidget::paintPicture(QPainter& painter, int cell, const QRect& place, const QColor& ink) {
  const std::optional<Picture> picture = sheet_.cells().picture(cell);
  std::optional<QPixmap> drawn;
  if (picture) {
    drawn = face().pictures.drawnPixmap(*picture, place.size() * devicePixelRatio());
    if (!drawn) undrawn_.insert(cell);
  }
  if (drawn && !drawn->isNull()) {
    drawn->setDevicePixelRatio(devicePixelRatio());
    const QSizeF size = drawn->deviceIndependentSize();
    painter.drawPixmap(
        (QRectF(place).center() - QPointF(size.width(), size.height()) / 2).toPoint(), *drawn);
    return;
  }
  QColor quiet = ink;
  quiet.setAlphaF(0.07F);
  painter.setPen(Qt::NoPen);
  painter.setBrush(quiet);
  painter.drawRoundedRect(place, face().px(kInset), face().px(kInset));
}

void SheetWidget::paintTick(QPainter& painter, const QRect& card, const QColor& disc,
                            const QColor& mark) {
  const double side = face().px(kTick), edge = face().px(kInset);
  const QRectF round(card.right() + 1 - side - edge, card.top() + edge, side, side);
  painter.setPen(Qt::NoPen);
  painter.setBrush(disc);
  painter.drawEllipse(round);
  QPainterPath tick;
  tick.moveTo(round.left() + side * 0.27, round.top() + side * 0.52);
  tick.lineTo(round.left() + side * 0.44, round.top() + side * 0.69);
  tick.lineTo(round.left() + side * 0.74, round.top() + side * 0.34);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(mark, side * 0.12, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(tick);
}

void SheetWidget::paintEmpty(QPainter& painter) {
  painter.setPen(style::mixed(ground(), ink(), 0.72));
  painter.setFont(style::font(face().px(kEmptyText), QFont::Normal));
  const double inset = face().px(2 * kCorner);
  painter.drawText(QRectF(rect()).adjusted(inset, 0, -inset, 0),
                   int(Qt::AlignCenter) | Qt::TextWordWrap, sheet_.emptyText());
}

}  // namespace korvane
