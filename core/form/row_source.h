// Where a list reads its rows from, hidden cells included. Rows and columns count from 1. A list
// asks while it is painted: nothing here throws, and a cell that cannot be read is empty.
#pragma once

#include <optional>
#include <vector>

#include "core/form/picture.h"

namespace korvane {

class RowSource {
 public:
  virtual ~RowSource() = default;
  virtual int rowCount() const = 0;
  virtual QString cell(int column, int row) const = 0;  // empty outside the rows and columns
  // The picture of a cell: an empty one where it has none, nothing while it has yet to come; the
  // list is given Grid::picturesCame() when it is there. Asked while the list is painted, for the
  // rows in view alone: it only looks up, and gives the same bytes again for the same picture.
  virtual std::optional<Picture> picture(int /*column*/, int /*row*/) const { return Picture(); }
  virtual bool emphasised(int /*row*/) const { return false; }  // the title stands in italics
  virtual bool foreign(int /*row*/) const { return false; }     // not of the library: plain font
};

// Rows kept in the list itself.
class RowTable : public RowSource {
 public:
  struct Row {
    QStringList cells;
    bool emphasised = false;
    bool foreign = false;
  };

  int rowCount() const override { return static_cast<int>(rows.size()); }
  QString cell(int column, int row) const override {
    if (row < 1 || row > rowCount()) return {};
    return rows[static_cast<size_t>(row - 1)].cells.value(column - 1);
  }
  bool emphasised(int row) const override { return has(row) && at(row).emphasised; }
  bool foreign(int row) const override { return has(row) && at(row).foreign; }

  bool has(int row) const { return row >= 1 && row <= rowCount(); }
  Row& at(int row) { return rows[static_cast<size_t>(row - 1)]; }
  const Row& at(int row) const { return rows[static_cast<size_t>(row - 1)]; }

  std::vector<Row> rows;
};

}  // namespace korvane
