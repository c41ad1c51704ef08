// CreateThumbs and LoadNoThumbs: the pass that fills the sheet of frmViewPic with the pictures of a
// directory and keeps its thumbnails. The pictures are read on the pool, several at once; the event
// loop only takes what comes.
#pragma once

#include "core/prompt.h"
#include "photos/album_thumbs.h"
#include "photos/picture_cells.h"
#include "photos/pooled_pass.h"
#include "photos/screens/sheet_work.h"

namespace korvane {

class Thumbnails {
 public:
  struct Uses {
    FileSystem& files;
    const Imaging& imaging;
    Pump& pump;
    Log& log;
    Messages& messages;
    PictureCells& cells;
    SheetWork& work;
    std::function<void(const QStringList& names)> listed;  // File1 lists these
    std::function<void()> ended;                           // the sheet shows them
  };
  explicit Thumbnails(Uses uses) : uses_(std::move(uses)), pass_(uses_.pump) {}

  enum Way { Automatic, Force, None };
  // Shows the pictures of `of` whose names fit `pattern`. Nothing while a work is on.
  void begin(const AlbumThumbs& of, const QString& pattern, Way way);
  void drop();  // the form goes: what is at work ends by itself

  // Of the directory that is shown. By position there is only what a pass has made.
  const AlbumThumbs* thumbs() const { return thumbs_ ? &*thumbs_ : nullptr; }

 private:
  // What a look at the directory has found.
  struct Album {
    QStringList names;   // of its pictures, in their order
    QStringList thumbs;  // by position, the files in the folder; by name, of each picture or empty
  };
  static Album look(const AlbumThumbs& of, FileSystem& files, const QString& pattern, Way way);
  static QStringList filesIn(const FileSystem& files, const QString& folder);
  void found(Album album, Way way);

  void LoadNoThumbs();
  void makeInOrder();
  void showByPosition();
  void fillByName();
  // Makes the thumbnails of these names; `made` hears of each.
  void make(std::vector<int> which, std::function<void(int, const AlbumThumbs::Made&)> made,
            std::function<void(bool stopped)> end);

  void saveFailed(const QString& name, const QString& error);
  void end();

  Uses uses_;
  PooledPass pass_;
  std::optional<AlbumThumbs> thumbs_;
  Album album_;
  int notSaved_ = 0;
  QString saveError_;
  std::shared_ptr<int> round_;  // of the look at hand
};

}  // namespace korvane
