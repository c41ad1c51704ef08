// The rows of the movie list: name, path (hidden), how long it is and how far it was seen.
#pragma once

#include "core/form/row_source.h"
#include "platform/text.h"

namespace korvane {

struct MovieRow {
  QString name, path;
  bool dvd = false;  // a folder that holds one
  bool operator==(const MovieRow&) const = default;
};

// What is known of a movie besides its name. Asked while the list is painted: it only looks up.
class MovieFacts {
 public:
  virtual ~MovieFacts() = default;
  virtual std::optional<Picture> poster(const MovieRow& row) const = 0;  // as RowSource::picture
  virtual QString length(const MovieRow& row) const = 0;                 // empty while not known
  virtual QString seen(const MovieRow& row) const = 0;                   // empty for not begun
};

class MovieRows : public RowSource {
 public:
  enum Column { Name = 1, Path, Length, Seen };

  // Sorted by name, blind to case. `facts` outlives the rows.
  MovieRows(std::vector<MovieRow> rows, const MovieFacts& facts);

  int rowCount() const override { return static_cast<int>(rows_.size()); }
  QString cell(int column, int row) const override;
  std::optional<Picture> picture(int column, int row) const override;

  const MovieRow* at(int row) const;     // null outside the rows
  int rowOf(const QString& path) const;  // 0 when it is not there
  const std::vector<MovieRow>& all() const { return rows_; }

 private:
  std::vector<MovieRow> rows_;
  const MovieFacts& facts_;
};

}  // namespace korvane
