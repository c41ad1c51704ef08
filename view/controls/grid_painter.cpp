#include "view/controls/grid_painter.h"

#include "view/drawing/style.h"

namespace korvane {
namespace {

constexpr double kFontStep = 2.4;  // form units of one unit of fontSize
constexpr double kLeastFont = 28;
constexpr double kInset = 22;
constexpr double kPictureShape = 4.0 / 3;  // of the place of a picture with its text beside it

}  // namespace

GridPainter::GridPainter(const Grid& grid, const Face& face, const GridView& view,
                         QPainter& painter)
    : grid_(grid),
      face_(face),
      view_(view),
      painter_(painter),
      columns_(shownColumns(grid.columns(), view.list.width())),
      ground_(style::colour(grid.colours().back, style::kCard)),
      ink_(style::colour(grid.colours().fore, style::readable(ground_))) {}

void GridPainter::paint(const QRect& dirty) {
  const double radius = face_.px(16);
  const QRectF all = view_.header.united(view_.list);
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.setPen(QPen(QColor(255, 255, 255, 18), 1));
  painter_.setBrush(ground_);
  painter_.drawRoundedRect(all.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  if (!view_.header.isEmpty()) paintHeader();

  const int count = grid_.maxRows();
  if (count == 0) return paintEmpty();
  painter_.setClipRect(view_.list.adjusted(0, 1, 0, -1));
  const double top = view_.list.top() - view_.offset;
  const int first = std::max(1, static_cast<int>((dirty.top() - top) / view_.rowHeight) + 1);
  const double bottom = std::min(dirty.bottom(), view_.list.bottom());
  const int last = std::min(count, static_cast<int>((bottom - top) / view_.rowHeight) + 1);
  // Upwards, since of the pictures that are still to be drawn the last one asked for comes first.
  for (int row = last; row >= first; --row)
    paintRow(row, {view_.list.left() + 0.0, top + (row - 1) * view_.rowHeight,
                   view_.list.width() + 0.0, view_.rowHeight});
  painter_.setClipping(false);
}

QFont GridPainter::rowFont(int row) const {
  const double units = std::max(kLeastFont, grid_.fontSize() * kFontStep);
  const double pixels = std::min(face_.px(units), view_.rowHeight * 0.8);
  return style::font(pixels, grid_.rows().foreign(row) ? QFont::Normal : QFont::Medium,
                     grid_.rows().emphasised(row));
}

void GridPainter::paintRow(int row, const QRectF& at) {
  const Colours& colours = grid_.colours();
  const bool active = row == grid_.row();
  const bool pressed = row == view_.pressedRow;
  QColor ink = ink_;
  if (active || pressed) {
    QColor fill = style::colour(colours.selected, style::mixed(ground_, style::kAccent, 0.2));
    if (active) ink = style::colour(colours.selectedFore, style::readable(fill));
    if (pressed) fill = style::mixed(active ? fill : ground_, Qt::white, 0.1);
    const QRectF pill = at.adjusted(face_.px(8), 1, -face_.px(8), -1);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(fill);
    painter_.drawRoundedRect(pill, face_.px(10), face_.px(10));
    if (active) {
      painter_.setBrush(ink);
      const double bar = face_.px(5);
      painter_.drawRoundedRect(
          QRectF(pill.left(), pill.top() + pill.height() * 0.2, bar, pill.height() * 0.6), bar / 2,
          bar / 2);
    }
  }
  painter_.setFont(rowFont(row));
  for (auto column = columns_.rbegin(); column != columns_.rend(); ++column) {
    QColor of = ink;
    if (column->number != columns_.front().number && !active) of = style::mixed(ground_, ink, 0.72);
    paintCell(*column, row, at, of);
  }
}

void GridPainter::paintCell(const ShownColumn& column, int row, const QRectF& at,
                            const QColor& ink) {
  const double inset = face_.px(kInset);
  const QRectF cell(at.left() + column.left + inset, at.top(), column.width - inset * 1.4,
                    at.height());
  const QString text = grid_.cell(column.number, row);
  const bool down = row == view_.pressedRow && column.number == view_.pressedColumn;
  if (column.kind == Grid::CellKind::Button)
    return paintButton(text, cell.adjusted(-inset / 2, face_.px(4), 0, -face_.px(4)), down);
  const bool pictured = column.kind == Grid::CellKind::Picture;
  const std::optional<Picture> picture =
      pictured ? grid_.rows().picture(column.number, row) : Picture();
  if (picture && picture->empty())
    return paintText(text, cell, Qt::AlignLeft | Qt::AlignVCenter, ink);

  const double edge = face_.px(6);
  QRectF place = cell.adjusted(-inset / 2, edge, 0, -edge), says = place;
  const bool beside = place.width() > 2 * place.height();
  if (!text.isEmpty() && beside) {
    place.setWidth(place.height() * kPictureShape);
    says.setLeft(place.right() + inset);
  } else if (!text.isEmpty()) {
    place.setHeight(place.height() - painter_.fontMetrics().height());
    says.setTop(place.bottom());
  }
  paintPicture(picture ? &*picture : nullptr, place, row, down);
  paintText(text, says, Qt::AlignVCenter | (beside ? Qt::AlignLeft : Qt::AlignHCenter), ink);
}

void GridPainter::paintText(const QString& text, const QRectF& cell, Qt::Alignment align,
                            const QColor& ink) {
  painter_.setPen(ink);
  const QString fits =
      painter_.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(cell.width()));
  cut_ |= fits != text;
  painter_.drawText(cell, int(align) | Qt::TextSingleLine, fits);
}

void GridPainter::paintButton(const QString& text, const QRectF& key, bool down) {
  const QColor body = style::mixed(ground_, Qt::white, 0.1);
  if (down)
    style::pressedCard(painter_, key, face_.px(10), body);
  else
    style::card(painter_, key, face_.px(10), body);
  painter_.setPen(ink_);
  painter_.drawText(key, int(Qt::AlignCenter) | Qt::TextSingleLine, text);
}

void GridPainter::paintPicture(const Picture* picture, const QRectF& place, int row, bool down) {
  // The same size wherever the list is scrolled to, since each size is a drawing of its own.
  const QSize size(static_cast<int>(place.width() + 0.01), static_cast<int>(place.height() + 0.01));
  std::optional<QPixmap> drawn;
  if (picture && picture->bytes) {
    drawn = face_.pictures.drawnPixmap(*picture, size);
    if (!drawn) undrawn_.push_back(row);
  } else if (picture) {
    drawn = face_.pictures.pixmap(*picture, size);
  }
  if (drawn && !drawn->isNull()) {
    const QPointF corner = place.center() - QPointF(drawn->width(), drawn->height()) / 2;
    painter_.drawPixmap(corner.toPoint(), *drawn);
  }
  if (drawn && !drawn->isNull() && !down) return;
  painter_.setPen(Qt::NoPen);
  QColor quiet = ink_;
  quiet.setAlphaF(down ? 0.2F : 0.07F);
  painter_.setBrush(quiet);
  painter_.drawRoundedRect(place, face_.px(10), face_.px(10));
}

void GridPainter::paintHeader() {
  const QColor ground =
      style::colour(grid_.colours().header, style::mixed(ground_, Qt::white, 0.06));
  const QColor ink = style::mixed(ground, style::readable(ground), 0.82);
  painter_.save();
  painter_.setClipRect(view_.header);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(view_.pressedRow < 0 ? style::mixed(ground, Qt::white, 0.1) : ground);
  painter_.drawRoundedRect(QRectF(view_.header).adjusted(1, 1, -1, face_.px(20)), face_.px(16),
                           face_.px(16));
  painter_.setFont(
      style::font(std::min(face_.px(kLeastFont), view_.rowHeight * 0.74), QFont::DemiBold));
  const double inset = face_.px(kInset);
  const auto say = [&](const QString& text, double left, double width) {
    paintText(
        text,
        {left + inset, view_.header.top() + 0.0, width - inset * 1.4, view_.header.height() + 0.0},
        Qt::AlignLeft | Qt::AlignVCenter, ink);
  };
  if (!grid_.header().isEmpty())
    say(grid_.header(), view_.header.left(), view_.header.width());
  else
    for (const ShownColumn& column : columns_)
      say(column.title, view_.header.left() + column.left, column.width);
  painter_.restore();
}

void GridPainter::paintEmpty() {
  if (grid_.emptyText().isEmpty()) return;
  painter_.setPen(style::mixed(ground_, ink_, 0.72));
  painter_.setFont(style::font(face_.px(kLeastFont), QFont::Normal));
  const double inset = face_.px(2 * kInset);
  painter_.drawText(QRectF(view_.list).adjusted(inset, 0, -inset, 0),
                    int(Qt::AlignCenter) | Qt::TextWordWrap, grid_.emptyText());
}

}  // namespace korvane
