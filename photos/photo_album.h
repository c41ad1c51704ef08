// The album as PhotoList shows it: one directory of the tree below the photo root, walked down and
// up by touches. Directories are listed off the form's thread; one that is out of reach keeps
// nobody waiting, and its rows come when it answers.
#pragma once

#include "core/palette.h"
#include "core/prompt.h"
#include "photos/photo_rows.h"
#include "platform/system.h"

namespace korvane {

class PhotoAlbum {
 public:
  static constexpr int kAnswerMs = 5000;  // after which a directory counts as one out of reach

  struct Uses {
    const AppState& state;
    const Settings& settings;
    const Palette& palette;
    Messages& messages;
    const Log& log;
    System& system;  // its files and imaging outlive the program's threads
    Grid& PhotoList;
    Timer& PhotoListTimer;
  };
  explicit PhotoAlbum(Uses uses);

  void setUpList();  // columns, row height, font and colours

  // The tab is entered. The first time, and when there is another root, the root is shown, made
  // when it is missing: its folders, not yet its files. Later the directory that is shown is looked
  // at again. A root that cannot be made is said once, and to who presses the open tab. Yields.
  void open(bool pressedAgain);
  void close() { open_ = false; }    // the tab is left
  void forget() { known_ = false; }  // the next open() is the first one again
  void refresh();                    // looks at what is shown again. Yields.

  void PhotoList_Click(int row);  // Yields.
  void PhotoListTimer_Timer();    // the directory has not answered

  const QString& directory() const { return look_.directory; }  // that is shown; no '/' at its end

  std::function<void(int row, const QString& name)> fileTouched = [](int, const QString&) {};
  std::function<void()> filled = [] {};           // there are other rows
  std::function<void(bool)> moved = [](bool) {};  // by a touch, to the root or elsewhere

 private:
  struct Look {
    QString directory;
    bool files = false;   // lists them too
    bool up = false;      // its line leads up
    bool create = false;  // makes it when it is missing
    int row = 1;          // that becomes the active one
  };
  void goTo(const QString& target);
  void list(const Look& look);
  void PICinitialSetup(const QString& path);
  void came(std::shared_ptr<const PhotoRows> rows);  // null for a directory that is not there
  void show(std::shared_ptr<const PhotoRows> rows);
  void say(const QString& title);
  void sayNoRoot();
  bool isRoot(const QString& path) const;

  Uses uses_;
  std::shared_ptr<const PhotoRows> rows_;
  QString root_;  // as photoRoot() has it
  Look look_;
  int fill_ = 0;  // counts the looks: what an older one brings is not wanted
  bool awaited_ = false, known_ = false, open_ = false, again_ = false;
  bool warned_ = false;  // that there is no root, in this run
  int photoTopRow_ = 1;  // of the root when it was left
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane
