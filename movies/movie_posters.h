// Stills and lengths of the movies in the list, by key MoviePosters: made in the background, one at
// a time, for the rows that are looked at, and kept in the cache directory. A still is found by the
// path, size and time of its file, so another film under the same name gets another one.
#pragma once

#include <deque>
#include <unordered_map>

#include "movies/movie_rows.h"
#include "platform/file_system.h"
#include "platform/movie_stills.h"
#include "platform/pump.h"

namespace korvane {

class MoviePosters {
 public:
  static constexpr int kWidth = 240, kHeight = 180;  // pixels, at most
  static constexpr size_t kMostKept = 400;           // in memory

  struct Uses {
    FileSystem& files;
    Pump& pump;
    MovieStills& stills;
    QString cache;               // the directory; made when the first still is kept
    std::function<void()> came;  // another row has its still, or is known to have none
  };
  explicit MoviePosters(Uses uses) : uses_(std::move(uses)) {}

  // Asked while the list is painted: a row that is not known is noted, the one asked last first.
  std::optional<Picture> poster(const MovieRow& row) const;
  double seconds(const QString& path) const;  // 0 while not known

  void forgetWishes();  // the list has other rows
  void stop();          // at the end of the program

 private:
  struct Known {
    std::shared_ptr<const QByteArray> jpeg;  // null for none
    double seconds = 0;
  };
  void wish(const QString& path) const;
  void look();
  void next();
  void lookInCache(const QString& path);
  void make(const QString& path, const QString& kept);
  void know(const QString& path, const QByteArray& jpeg, double seconds);
  void keep(const QString& kept, const MovieStill& still);

  Uses uses_;
  std::unordered_map<QString, Known> known_;
  std::deque<QString> order_;           // of known_, the oldest first
  mutable std::deque<QString> wishes_;  // the next one first
  mutable bool asked_ = false;          // to look at them from the event loop
  bool busy_ = false;
  // What a wish brings about, behind the paint that asks.
  const std::function<void()> looks_ = [this] { look(); };
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane
