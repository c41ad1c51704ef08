// What the menu mnuOptions of frmViewPic does with the chosen pictures. Each is a work with its
// bar of progress, done on the pool; Stop ends it behind the pictures at hand.
#pragma once

#include "photos/cls_picture.h"
#include "photos/thumbnails.h"
#include "platform/trash.h"

namespace korvane {

class PictureActions {
 public:
  struct Uses {
    FileSystem& files;
    const Imaging& imaging;
    Trash& trash;
    Pump& pump;
    Log& log;
    const Settings& settings;
    Messages& messages;
    PictureCells& cells;
    SheetWork& work;
    const Thumbnails& thumbnails;
    std::function<void()> foldersChanged;
    std::function<void()> trashed;  // takeBack() has something to do
    std::function<void()> ended;    // of each work
  };
  explicit PictureActions(Uses uses) : uses_(std::move(uses)), pass_(uses_.pump) {}

  // Turns the picture files clockwise and makes their thumbnails again. A file that cannot be
  // turned or replaced stays as it is.
  void Rotate(int angle);
  // Asks, then deletes the picture files; their thumbnails stay. By key PhotoTrash both go to the
  // trash. Yields.
  void mnuDeleted();
  // Copies the pictures to a new folder of the photo root, whose name is asked for. `listed` is
  // whether the directory has pictures at all. Yields.
  void mnuGroup(clsPicture& pictures, bool listed);

  int inTrash() const { return static_cast<int>(gone_.size()); }  // pictures of the last Delete
  void takeBack();                                                // those
  void forgetTrash() { gone_.clear(); }
  void drop();  // the form goes: what is at work ends by itself

 private:
  struct Gone {
    QString path, trashed;
    std::vector<std::pair<QString, QString>> thumbs;  // the same of each
  };
  struct Removed {
    bool done = false;
    Gone gone;
    QString error;
  };
  // The work of each chosen picture, by its cell's index; `text` stands before its name in the bar.
  using Each = std::function<PooledPass::Work(int index)>;
  void forChosen(const QString& text, const Each& work, const std::function<void()>& end,
                 bool together);
  static Removed putInTrash(Trash& trash, const FileSystem& files, const AlbumThumbs& thumbs,
                            const QString& name);
  void copyTo(const QString& folder);
  void broughtBack(const Gone& gone, bool done, const QString& error);
  void failed(const QString& path, const QString& error);
  void end(const QString& failure);

  Uses uses_;
  PooledPass pass_;
  std::vector<Gone> gone_;
  int failures_ = 0;
  QString error_;
};

}  // namespace korvane
