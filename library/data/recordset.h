// A recordset that lives in memory only: rows with a current position, counted from 1.
#pragma once

#include <QList>
#include <algorithm>
#include <utility>

namespace korvane {

template <class Row>
class Recordset {
 public:
  int RecordCount() const { return static_cast<int>(rows_.size()); }
  bool bof() const { return position_ < 1; }
  bool eof() const { return position_ > RecordCount(); }

  // The current record, 0 before the first and RecordCount() + 1 after the last.
  int AbsolutePosition() const { return position_; }
  void setAbsolutePosition(int record) { position_ = std::clamp(record, 0, RecordCount() + 1); }
  void MoveFirst() { position_ = 1; }
  void MoveLast() { position_ = RecordCount(); }
  void MoveNext() { setAbsolutePosition(position_ + 1); }
  void MovePrevious() { setAbsolutePosition(position_ - 1); }

  // Appends and makes the new record the current one.
  void AddNew(Row row) {
    rows_.push_back(std::move(row));
    position_ = RecordCount();
  }
  // Deletes the current record; the one after it becomes current. Nothing without a current record.
  void Delete() {
    if (bof() || eof()) return;
    rows_.removeAt(position_ - 1);
  }

  // The current record; an empty one where there is none.
  const Row& row() const { return at(position_); }
  // Record 1 to RecordCount(); an empty one outside.
  const Row& at(int record) const {
    static const Row none{};
    return record < 1 || record > RecordCount() ? none : rows_[record - 1];
  }

  // All records, shared with the recordset until either changes.
  const QList<Row>& rows() const { return rows_; }
  // Takes these; before the first.
  void setRows(QList<Row> rows) {
    rows_ = std::move(rows);
    position_ = 0;
  }

  // The current record becomes the first and stays the current one.
  void MoveToTop() {
    if (bof() || eof()) return;
    std::rotate(rows_.begin(), rows_.begin() + position_ - 1, rows_.begin() + position_);
    MoveFirst();
  }

  template <class Before>
  void Sort(Before before) {
    std::stable_sort(rows_.begin(), rows_.end(), before);
    MoveFirst();
  }

 private:
  QList<Row> rows_;
  int position_ = 0;
};

}  // namespace korvane
