// The rows of frmFTP's list: "..", then the entries of the server's folder. None is copied.
#pragma once

#include "core/form/row_source.h"
#include "ftp/dir_list.h"

namespace korvane {

inline constexpr char kParentRow[] = "..";

class FtpRows : public RowSource {
 public:
  explicit FtpRows(std::shared_ptr<const cDirList> list) : list_(std::move(list)) {}

  int rowCount() const override { return list_->Count() + 1; }
  QString cell(int column, int row) const override;
  std::optional<Picture> picture(int column, int row) const override;
  // The entry of a row; null for the first and for none.
  const cDirItem* entry(int row) const { return list_->item(row - 1); }

 private:
  std::shared_ptr<const cDirList> list_;
};

}  // namespace korvane
