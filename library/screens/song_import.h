// The roads by which songs enter the library, as the import screens use them.
#pragma once

#include "platform/text.h"

namespace korvane {

struct ImportProgress {
  QString text;  // what is at hand
  int files = 0, added = 0;
  double filesPerSecond = 0;
};

struct ImportResult {
  int files = 0, added = 0, failed = 0;
  double seconds = 0;
  bool stopped = false;
};

class ImportWatch {
 public:
  virtual ~ImportWatch() = default;
  virtual void importProgress(const ImportProgress& progress) = 0;
};

// What cannot be done is thrown as std::exception with a text for the user.
class SongImport {
 public:
  virtual ~SongImport() = default;

  // Artist and album by the names of the folders. With `listenerDrive` not empty, it takes the
  // place of the first character of each path. Yields.
  virtual ImportResult dofiles(const QString& root, const QString& listenerDrive,
                               ImportWatch& watch) = 0;
  // Three levels, by the tags of the files. Yields.
  virtual ImportResult scanTagged(const QString& root, ImportWatch& watch) = 0;
  virtual void stop() = 0;  // heard at the next file

  virtual bool AddOneSong(const QString& path, const QString& fileName) = 0;  // true when added
  // One file by its place in the library; true when added.
  virtual bool addSong(const QString& artist, const QString& album, const QString& fileName,
                       const QString& path) = 0;
  virtual QString musicPattern() const = 0;                   // "*.mp3;*.wma;*.wav" and more
  virtual qint64 freeSpace(const QString& folder) const = 0;  // bytes
};

// What the import screens tell the units above.
class ImportNews {
 public:
  virtual ~ImportNews() = default;
  virtual void songsChanged() = 0;  // the lists and the play list view are to be filled anew
  virtual void movieDirectoryChanged() = 0;  // the movie scan, then the Movies tab
  virtual void photoDirectoryChanged() = 0;  // a fresh photo object, then the Photos tab
};

}  // namespace korvane
