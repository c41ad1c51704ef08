// The order of names as a reader has it: blind to case, and "2" before "10". Of any thread.
#pragma once

#include <QCollator>

#include <algorithm>
#include <vector>

#include "platform/text.h"

namespace korvane {

inline QCollator naturalOrder() {
  QCollator order{QLocale(QLocale::English)};  // that of the C locale has no numbers
  order.setCaseSensitivity(Qt::CaseInsensitive);
  order.setNumericMode(true);
  return order;
}

// Rows by the name that `nameOf` says of each; equal ones stay as they lie.
template <class Row, class NameOf>
std::vector<Row> inNaturalOrder(std::vector<Row> rows, NameOf nameOf) {
  const QCollator order = naturalOrder();
  std::vector<std::pair<QCollatorSortKey, size_t>> keys;
  keys.reserve(rows.size());
  for (size_t i = 0; i < rows.size(); ++i) keys.emplace_back(order.sortKey(nameOf(rows[i])), i);
  std::ranges::stable_sort(keys, [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<Row> sorted;
  sorted.reserve(rows.size());
  for (const auto& [key, i] : keys) sorted.push_back(std::move(rows[i]));
  return sorted;
}

}  // namespace korvane
