// The thumbnails of one directory: where they lie and how one is made. By position (no key
// PairByName) that of "a.b.jpg" is "thumbs/a.JPG", cut at the first dot; by name it is
// "thumbs/a.b.jpg.JPG", or lies in the cache where the album cannot be written.
// A value; its members may be called from any thread and wait for the disk.
#pragma once

#include "core/settings.h"
#include "platform/imaging.h"

namespace korvane {

class AlbumThumbs {
 public:
  struct Uses {
    FileSystem& files;
    const Imaging& imaging;
    QString cache;  // the directory of all albums' further thumbnails
  };
  // `directory` has a separator at its end. Pictures are read as `reading` says, into its box.
  AlbumThumbs(const Uses& uses, QString directory, const Imaging::Reading& reading, bool byName);

  const QString& directory() const { return directory_; }
  QString folder() const { return directory_ + u"thumbs"_s; }
  bool byName() const { return byName_; }
  const Imaging::Reading& reading() const { return reading_; }

  // The directory holds thumbnails itself, and gets none.
  bool isThumbs() const { return directory_.endsWith("THUMBS/"_L1, Qt::CaseInsensitive); }

  // By name: the file of one that is no older than its picture; empty for none.
  QString freshOf(const QString& name) const;

  struct Made {
    std::shared_ptr<const Pixels> pixels;  // null when the picture could not be read
    QString path;                          // its file; empty when it could not be kept
    QString readError, saveError;          // in words
  };
  Made make(const QString& name) const;

  QStringList filesOf(const QString& name) const;  // where one may lie, the best place first
  void remove(const QString& name) const;
  void removeAll() const;

 private:
  QString cacheOf() const;

  FileSystem* files_;
  const Imaging* imaging_;
  QString cache_, directory_;
  Imaging::Reading reading_;
  bool byName_;
};

}  // namespace korvane
