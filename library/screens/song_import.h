// The roads by which songs enter the library, as the import screens use them.
#pragma once

#include "platform/text.h"

namespace korvane {

struct ImportProgress {
  QString text;               // what is at hand
  int files = 0, added = 0;   // until now
  double filesPerSecond = 0;  // since the beginning
};

struct ImportResult {
  int files = 0, added = 0, failed = 0;  // seen, new rows, could not be read
  double seconds = 0;
  bool stopped = false;  // by stop(); what was added until then stays
};

// Hears a scan, from within it: at most every 16 ms.
class ImportWatch {
 public:
  virtual ~ImportWatch() = default;
  virtual void importProgress(const ImportProgress& progress) = 0;
};

// What cannot be done is thrown as std::exception with a text for the user; rows that were added
// before it stay.
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
  // A row with only an artist for each text in square brackets; all of them or none. The rows.
  virtual int addArtistsFromListing(QByteArrayView listing) = 0;

  virtual QString musicPattern() const = 0;  // "*.mp3;*.wma;*.wav" and more
  // Bytes that this user may still write to the disk of that folder; 0 when it cannot be told.
  virtual qint64 freeSpace(const QString& folder) const = 0;
};

// What the import screens tell the units above.
class ImportNews {
 public:
  virtual ~ImportNews() = default;
  // The lists and the play list view are to be filled anew. Throws std::exception, with a text for
  // the user, when the library cannot be read.
  virtual void songsChanged() = 0;
};

}  // namespace korvane
