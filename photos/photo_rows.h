// The rows of PhotoList: the line of the directory, which leads up, its folders and its files.
#pragma once

#include "core/form/row_source.h"
#include "photos/picture_listing.h"

namespace korvane {

class PhotoRows : public RowSource {
 public:
  enum Column { Icon = 1, Name, Path };

  // With the line of the directory alone. It has the picture of a way up with `up`. What follows
  // waits for the disk and may be called from any one thread, until the rows are shown.
  PhotoRows(QString directory, bool up);
  // Its folders, by name unless `order` is that of the disk; not one called "thumbs", nor hidden
  // ones, whose names begin with a dot. Each with the number of its files.
  void PICdoallfolders(const FileSystem& files, PhotoOrder order);
  // Its files, pictures or not, but no "Thumbs.db"; at most as many as make `mostRows` of all.
  void PICdoallfiles(const FileSystem& files, const Imaging& imaging, PhotoOrder order,
                     int mostRows);

  int rowCount() const override;
  QString cell(int column, int row) const override;
  std::optional<Picture> picture(int column, int row) const override;

  const QString& directory() const { return directory_; }
  bool isFolder(int row) const;      // also the line of the directory where it leads up
  bool cut() const { return cut_; }  // there are more files than rows
  bool operator==(const PhotoRows& other) const;

 private:
  struct Folder {
    QString name, path;
    qsizetype files = 0;
    bool operator==(const Folder&) const = default;
  };
  const Folder* folder(int row) const;

  QString directory_;
  bool up_ = false, cut_ = false;
  std::vector<Folder> folders_;
  QStringList files_;
};

}  // namespace korvane
