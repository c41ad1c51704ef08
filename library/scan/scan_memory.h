// What was scanned: per directory the stamps of its files, so that a second scan opens nothing that
// it has read. Kept in the table Scanned, which the database empties when a song is deleted or
// renamed.
#pragma once

#include <QHash>
#include <vector>

#include "library/data/sql.h"

namespace korvane {

using Stamps = std::vector<quint64>;  // in ascending order

class ScanMemory {
 public:
  // What is remembered of `root` and all below it. Directories are bytes, as on disk. Throws
  // DatabaseError, as write() does.
  static ScanMemory load(sql::Connection& connection, const QByteArray& root);

  // Null when nothing is remembered. Stays as loaded: may be read from any thread.
  const Stamps* find(const QByteArray& directory) const;

  // Remembers these files of a directory, in the transaction of the rows they became.
  static void write(sql::Connection& connection, const QByteArray& directory, const Stamps& stamps);

 private:
  QHash<QByteArray, Stamps> directories_;
};

}  // namespace korvane
