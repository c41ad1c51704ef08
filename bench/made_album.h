// Folders of JPEG files for the modes that read pictures.
#pragma once

#include <QTemporaryDir>

#include "platform/text.h"

namespace korvane {

// Files that take about as many bits as photographs; kDistinct of them, and the others are links to
// these, by turns. Ends the program where the disk refuses; gone with the object.
class MadeAlbum {
 public:
  static constexpr int kDistinct = 8;

  MadeAlbum(int count, int width, int height);
  QString path() const { return folder_.path(); }
  const QStringList& paths() const { return paths_; }

  static void save(const QString& path, const QByteArray& bytes);

 private:
  QTemporaryDir folder_;
  QStringList paths_;
};

}  // namespace korvane
