// A dump of disc names into the five files that look-ups search.
#pragma once

#include "platform/file_system.h"

namespace korvane {

struct CddbImport {
  int records = 0;  // files of the dump, of which
  int added = 0;    // named a disc that no file had,
  int known = 0;    // only discs that one had,
  int bad = 0;      // no disc at all
  QString trouble;  // why it ended before the dump did; empty when it did not
};

struct CddbImportRules {
  // A transaction of each file every so many records: so many at most are lost when it is killed.
  int batch = 100'000;
  std::function<void(const CddbImport&)> progress = [](const CddbImport&) {};  // every record
};

// `source` as readDumpFiles() takes it. What is in the files stays, so that an import that ended
// early is ended by running it again. Blocks until all is on the disk.
CddbImport importCddb(FileSystem& files, const QString& source, const QString& directory,
                      const CddbImportRules& rules = {});

}  // namespace korvane
