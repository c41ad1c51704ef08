// Reads the files of a tree ahead of the scan that takes them: one thread walks, several read, and
// what they find waits in a bounded queue in the order of the walk.
#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

#include "library/scan/folder_walk.h"
#include "library/scan/scan_memory.h"
#include "library/scan/song_row.h"

namespace korvane {

struct ScannedFile {
  Song song;
  quint64 stamp = 0;
  bool known = false;  // read by a scan before and unchanged since: `song` is empty
  QString failure;     // why it cannot be read
};

// Some files of one directory, in its order.
struct Batch {
  QByteArray directory;
  std::vector<QByteArray> names;
  std::vector<ScannedFile> files;
  bool endsDirectory = false;
  QString failure;  // of the directory itself
};

// What a scan looks for: three levels by tags, or artist and album folders by their names.
struct ScanPlan {
  QByteArray root;  // as on disk
  bool byFolders = false;
  ScanRules rules;
  QString listenerDrive;  // takes the place of the first character of a path
};

// Its threads stop at the next file when it goes, and are not waited for: one may hang on a dead
// volume.
class Prefetch {
 public:
  // Begins to walk and read at once.
  Prefetch(ScanPlan plan, ScanMemory memory);
  ~Prefetch();
  Prefetch(const Prefetch&) = delete;

  enum Answer { Ready, NotYet, End };
  // The next batches of the walk, in its order; waits at most `milliseconds` for them.
  Answer next(std::vector<Batch>& batches, int milliseconds);

  const ScanMemory& memory() const;  // what it was given; any thread

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
};

}  // namespace korvane
