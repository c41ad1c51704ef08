// Scanning: fills Songs from a tree of files. A scan adds rows and never removes one.
#pragma once

#include "library/data/database.h"
#include "library/scan/prefetch.h"
#include "platform/pump.h"

namespace korvane {

struct ScanProgress {
  QString text;  // what is at hand
  int files = 0, added = 0;
  double filesPerSecond = 0;
};

struct ScanResult {
  int files = 0;   // seen, those known from before included
  int added = 0;   // rows
  int failed = 0;  // files and directories that could not be read
  double seconds = 0;
  bool stopped = false;
};

// Hears a scan. Called from the thread of the scan.
class ScanEvents {
 public:
  virtual ~ScanEvents() = default;
  virtual void scanStatus(const ScanProgress& progress) = 0;  // at most every 16 ms
  virtual void scanError(const QString& text) = 0;            // one file failed; for the log
};

class Scanner {
 public:
  Scanner(Database& database, Pump& pump, ScanEvents& events);  // none owned

  // A scan that is begun while one runs does nothing and says that it was stopped. One that throws
  // keeps the rows of its transactions before, of up to a second each.
  //
  // By folder names: root/artist/album/song. With `listenerDrive` not empty, it takes the place of
  // the first character of each path. Throws DatabaseError. Yields.
  ScanResult dofiles(const QString& root, const ScanRules& rules,
                     const QString& listenerDrive = {});
  // By tags: the root, its folders and theirs, three levels. Throws DatabaseError. Yields.
  ScanResult scanTagged(const QString& root, const ScanRules& rules);

  // From the pump that a scan yields to.
  void stop() { stopped_ = true; }  // heard at the next file; what was found until then stays
  bool running() const { return running_; }

  // One file chosen by hand. True when a row was added. Throws std::runtime_error when the file
  // cannot be read, DatabaseError when the row cannot be written.
  bool AddOneSong(const QString& path, const QString& fileName, const ScanRules& rules);

 private:
  class Pass;
  ScanResult scan(ScanPlan plan);

  Database& database_;
  Pump& pump_;
  ScanEvents& events_;
  bool stopped_ = false, running_ = false;
};

// Enters each text between "[" and "]" of a directory listing as an artist, all of them or none.
// The rows added. Throws DatabaseError.
int addArtistsFromListing(Database& database, QByteArrayView listing);

}  // namespace korvane
