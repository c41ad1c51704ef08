// Where movies were left, so that they go on there: MoviePlaces.txt of the program directory. A
// line a movie, the latest first: seconds, length (0 for not known), path, with tabs between, in
// UTF-8.
#pragma once

#include <deque>

#include "core/log.h"

namespace korvane {

class MovieMarks {
 public:
  static constexpr size_t kMost = 500;  // the oldest are forgotten

  MovieMarks(FileSystem& files, const Log& log, const QString& home);  // read when first asked

  // A place at the very beginning or end is none, and forgets the movie. A place that cannot be
  // stored is a line of the log and lasts as long as the program.
  void remember(const QString& path, double seconds, double length);
  void forget(const QString& path);

  double secondsOf(const QString& path) const;  // 0 for none
  // How far it was seen, as "42 %"; empty for not begun, or where the length was not known.
  QString seen(const QString& path) const;

  std::function<void()> changed = [] {};

 private:
  struct Mark {
    QString path;
    double seconds = 0, length = 0;
  };
  std::deque<Mark>& marks() const;
  const Mark* find(const QString& path) const;
  bool drop(const QString& path);
  void save();

  FileSystem& files_;
  const Log& log_;
  const QString file_;
  mutable std::optional<std::deque<Mark>> marks_;
};

}  // namespace korvane
