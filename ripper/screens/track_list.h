// The list ss of frmRipper: a row for each track of a disc, with what is to be ripped and what the
// library has. Rows count from 1, as tracks do.
#pragma once

#include "platform/cd_ripper.h"

#include "core/form/control.h"

namespace korvane {

class TrackList {
 public:
  enum Column { Rip = 1, Title, Duration, InLibrary, Reading };

  explicit TrackList(Grid& ss) : ss_(ss) {}

  void setGrid(bool readings);  // columns and colours; `readings`: also how each track was read
  void clear() { ss_.setRows(std::vector<RowTable::Row>()); }
  void fill(const Disc& disc);  // by their numbers, nothing ticked

  int rows() const { return ss_.maxRows(); }
  bool holdsSound(int row) const;  // else data
  bool ticked(int row) const;
  void tick(int row, bool on);  // nothing for data
  void tickAll(bool on);

  QString title(int row) const { return ss_.cell(Title, row); }
  QStringList titles() const;
  void setTitle(int row, const QString& title) { ss_.setCell(Title, row, title); }
  void setInLibrary(int row, bool on);
  void setReading(int row, const RipResult& result);

  void choose(int row) { ss_.SetActiveCell(Title, row); }  // brings it into view

 private:
  Grid& ss_;
};

}  // namespace korvane
