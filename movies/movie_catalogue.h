// Fills MovieList from the directories of movies. They are listed off the form's thread, each by
// itself, so that one on a dead network mount keeps nobody waiting: its rows come when it answers.
#pragma once

#include "core/log.h"
#include "core/palette.h"
#include "core/prompt.h"
#include "movies/movie_directories.h"
#include "movies/movie_rows.h"
#include "platform/pump.h"

namespace korvane {

class MovieCatalogue {
 public:
  struct Uses {
    AppState& state;
    const Settings& settings;
    const Palette& palette;
    Messages& messages;
    const Log& log;
    Pump& pump;
    const FileSystem& files;  // outlives the program's threads
    Grid& MovieList;
    MovieDirectories& directories;
    const MovieFacts& facts;
  };
  explicit MovieCatalogue(Uses uses);

  // Columns, row height, font and colours.
  void setUpList();

  // Lists the directories anew. The rows change where they differ, and the active one stays. A
  // directory with a password that was not given yet is asked for; a wrong one leaves it out
  // until the next time.
  void SetupFilesDigital();  // folders with a DVD each
  void SetupFiles();         // movie files

  const MovieRow* active() const;  // the row that a press on Play means; null for none
  const std::vector<MovieRow>& rows() const { return rows_->all(); }
  // Called when there are other rows.
  std::function<void()> rowsChanged = [] {};

 private:
  struct Listing {
    bool there = false;
    std::vector<MovieRow> rows;
  };
  void list(int first, int last);
  void came(int fill, int index, const Listing& listing);
  bool admits(int index);  // Yields.
  void showSoon();         // once for those that come together: sorting is most of the work
  void show();
  void sayState();

  Uses uses_;
  std::shared_ptr<const MovieRows> rows_;
  int fill_ = 0;  // counts them: what an older one brings is not wanted
  int awaited_ = 0;
  std::map<int, std::vector<MovieRow>> found_;    // of this fill, by directory
  std::vector<std::pair<int, Listing>> waiting_;  // for the answer to a password question
  bool asking_ = false, showing_ = false;         // showing_: showSoon() of this fill is under way
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane
