// clsPicture: the pictures of one directory as the list that a slide show runs through, and how a
// picture file is read. One for the tab and one for each frmViewPic.
#pragma once

#include "core/settings.h"
#include "photos/picture_loader.h"
#include "platform/file_system.h"

namespace korvane {

// Which files are pictures, by the last three letters of their names (so "jpeg" is none), or with
// key PhotoKinds by further kinds, and the order in which a directory lists them (PhotoSort).
class PhotoKindsRule {
 public:
  explicit PhotoKindsRule(const Settings& settings) : settings_(settings) {}
  bool accepts(QStringView name) const;

 private:
  const Settings& settings_;
};

// A row of rsFiles.
struct PictureFile {
  QString FileName, Path, Extension;
  bool operator==(const PictureFile&) const = default;
};

// rsFiles: the rows and the position among them, which may stand before the first (BOF) or behind
// the last (EOF); both at once when there is none.
class PictureFiles {
 public:
  bool isOpen() const { return open_; }
  void open(std::vector<PictureFile> rows);  // at the first
  int RecordCount() const { return static_cast<int>(rows_.size()); }
  bool BOF() const { return rows_.empty() || at_ < 0; }
  bool EndOfFile() const { return rows_.empty() || at_ >= RecordCount(); }
  void MoveFirst() { at_ = 0; }
  void MoveLast() { at_ = RecordCount() - 1; }
  void MoveNext() { at_ = std::min(at_ + 1, RecordCount()); }
  void MovePrevious() { at_ = std::max(at_ - 1, -1); }
  // From 1; false, and nothing moves, outside the rows.
  bool setAbsolutePosition(int position);
  int AbsolutePosition() const { return at_ + 1; }
  const PictureFile* row() const { return row(at_); }  // null at BOF and EOF
  const PictureFile* row(int at) const {               // from 0
    return at < 0 || at >= RecordCount() ? nullptr : &rows_[static_cast<size_t>(at)];
  }

 private:
  std::vector<PictureFile> rows_;
  int at_ = 0;
  bool open_ = false;
};

class clsPicture {
 public:
  struct Uses {
    Settings& settings;
    FileSystem& files;
    const Imaging& imaging;
    Pump& pump;
    Log& log;
  };
  explicit clsPicture(Uses uses);

  // A folder of that name in the photo root. Empty when it was made, its path then in `name`; else
  // why not: "Folder already exists".
  QString AddDirectory(QString& name);
  QString PhotoPath();  // of the setting, kept; "NO" when unset

  // Fills rsFiles with the pictures of the directory, in the order of the disk or of key PhotoSort;
  // a directory that is missing leaves it as it is.
  void SetupFiles(const QString& directory);
  void SetupRecordSet();  // open, and without a row
  PictureFiles rsFiles;

  // How a picture is read for a box of that many pixels, by key PhotoTurn.
  Imaging::Reading readingFor(int width, int height) const;
  PictureLoader loader;  // what reads them, off the event loop

 private:
  Uses uses_;
  QString photoPath_;
};

}  // namespace korvane
