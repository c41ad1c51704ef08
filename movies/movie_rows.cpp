#include "movies/movie_rows.h"

#include <QCollator>

#include <algorithm>

namespace korvane {
namespace {

void sortByName(std::vector<MovieRow>& rows) {
  QCollator order;
  order.setCaseSensitivity(Qt::CaseInsensitive);
  order.setNumericMode(true);
  std::vector<std::pair<QCollatorSortKey, size_t>> keys;
  keys.reserve(rows.size());
  for (size_t i = 0; i < rows.size(); ++i) keys.emplace_back(order.sortKey(rows[i].name), i);
  std::ranges::stable_sort(keys, [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<MovieRow> sorted;
  sorted.reserve(rows.size());
  for (const auto& [key, i] : keys) sorted.push_back(std::move(rows[i]));
  rows = std::move(sorted);
}

}  // namespace

MovieRows::MovieRows(std::vector<MovieRow> rows, const MovieFacts& facts)
    : rows_(std::move(rows)), facts_(facts) {
  sortByName(rows_);
}

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
