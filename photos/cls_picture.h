// clsPicture: the pictures of one directory as the list that a slide show runs through, and how a
// picture file is read. One for the tab and one for each frmViewPic.
#pragma once

#include "core/settings.h"
#include "photos/picture_loader.h"
#include "platform/file_system.h"

namespace korvane {

// Which files are pictures, by the last three letters of their names (so "jpeg" is none), or with
// key PhotoKinds by further kinds for which there is a decoder. The settings are read when it is
// made; after that it may be asked from any thread.
class PhotoKindsRule {
 public:
  // Without `imaging`, which outlives it, every further kind counts as one that can be decoded.
  explicit PhotoKindsRule(const Settings& settings, const Imaging* imaging = nullptr)
      : kinds_(settings.upper(key::PhotoKinds)), imaging_(imaging) {}
  bool accepts(QStringView name) const;

 private:
  QString kinds_;
  const Imaging* imaging_;
};

// The root of the album: '/' inside and one at the end; one that is relative lies in the program
// directory. "NO" when there is none.
QString photoRoot(const Settings& settings);

// A row of rsFiles: the bare name, cut to 70 characters; the full path; the last three characters
// of the name in upper case.
struct PhotoFile {
  QString FileName, Path, Extension;
  bool operator==(const PhotoFile&) const = default;
};

// rsFiles: the rows and the position among them, which may stand before the first (BOF) or behind
// the last (EOF); both at once when there is none.
class PictureFiles {
 public:
  bool isOpen() const { return open_; }
  void open(std::vector<PhotoFile> rows);  // at the first
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
  const PhotoFile* row() const { return row(at_); }  // null at BOF and EOF
  const PhotoFile* row(int at) const {               // from 0
    return at < 0 || at >= RecordCount() ? nullptr : &rows_[static_cast<size_t>(at)];
  }

 private:
  std::vector<PhotoFile> rows_;
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
  QString PhotoPath();  // photoRoot() of now, kept

  // Fills rsFiles with the pictures of the directory, in the order of the disk or of key PhotoSort;
  // a directory that is missing, or does not answer in five seconds, leaves it as it is. Yields.
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
