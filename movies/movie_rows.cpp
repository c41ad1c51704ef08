#include "movies/movie_rows.h"

#include "core/natural_order.h"

namespace korvane {

MovieRows::MovieRows(std::vector<MovieRow> rows, const MovieFacts& facts)
    : rows_(inNaturalOrder(std::move(rows), [](const MovieRow& row) { return row.name; })),
      facts_(facts) {}

const MovieRow* MovieRows::at(int row) const {
  return row < 1 || row > rowCount() ? nullptr : &rows_[static_cast<size_t>(row - 1)];
}

int MovieRows::rowOf(const QString& path) const {
  const auto found = std::ranges::find(rows_, path, &MovieRow::path);
  return found == rows_.end() ? 0 : static_cast<int>(found - rows_.begin()) + 1;
}

QString MovieRows::cell(int column, int row) const {
  const MovieRow* of = at(row);
  if (!of) return {};
  switch (column) {
    case Name:
      return of->name;
    case Path:
      return of->path;
    case Length:
      return facts_.length(*of);
    case Seen:
      return facts_.seen(*of);
    default:
      return {};
  }
}

std::optional<Picture> MovieRows::picture(int column, int row) const {
  const MovieRow* of = at(row);
  return of && column == Name ? facts_.poster(*of) : Picture();
}

}  // namespace korvane
