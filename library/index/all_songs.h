// rsMain: every song in the order of shown titles, as rows that are read when they are looked at.
#pragma once

#include <array>
#include <list>

#include "core/form/row_source.h"
#include "library/data/song.h"
#include "library/data/sql.h"
#include "library/index/index_image.h"

namespace korvane {

// Gives the open connection, or throws DatabaseError.
using OpenDatabase = std::function<sql::Connection&()>;

// Columns: 1 tsongTitle, 2 artist, 3 songpath, 4 album. The rows and their order stand as they were
// when the list was opened; a song deleted since, or one that cannot be read, shows empty cells.
class AllSongs : public RowSource {
 public:
  // `unreadable` hears why rows cannot be read, once until they can be again.
  using Unreadable = std::function<void(const QString& why)>;
  AllSongs(std::shared_ptr<const IndexImage> image, OpenDatabase open, Unreadable unreadable);

  int rowCount() const override { return image_->songs(); }
  QString cell(int column, int row) const override;
  bool emphasised(int row) const override;  // a favourite
  void forget() { blocks_.clear(); }        // rows are read anew: marks have changed

  // The first row whose tsongTitle is not before `text`; rowCount() + 1 when all are. The current
  // row follows.
  int Find(const QString& text);

  // The current row, from 1; 0 in an empty list.
  int AbsolutePosition() const { return position_; }
  void setAbsolutePosition(int row);
  void MoveLast() { setAbsolutePosition(rowCount()); }

  const std::shared_ptr<const IndexImage>& image() const { return image_; }

 private:
  static constexpr int kBlock = 32, kBlocks = 16, kColumns = 4;
  struct Block {
    int number = -1;
    std::array<std::array<QString, kColumns>, kBlock> rows;
    std::array<bool, kBlock> favourite{};
  };
  const Block* find(int row) const;  // null when it cannot be read
  const Block& block(int number) const;
  int resolve(int first, int last, const QByteArray& text);

  std::shared_ptr<const IndexImage> image_;
  OpenDatabase open_;
  Unreadable unreadable_;
  mutable bool failing_ = false;
  mutable std::list<Block> blocks_;  // the one used last in front
  int position_ = 0;
};

}  // namespace korvane
