// The five files of disc names, open to be filled.
#pragma once

#include "ripper/names/cls_cddb.h"
#include "ripper/names/disc_database.h"

namespace korvane {

// Every call throws std::runtime_error, in words, when a file cannot be made or written; what was
// committed before stays.
class CdDataFiles {
 public:
  // Makes those that are missing, all of them before any is filled: a look-up ends at the first
  // that it misses. `files` serves this call only.
  CdDataFiles(FileSystem& files, const QString& directory);

  // Whether the disc is new. Its identifier alone says into which file it goes, so that whoever
  // comes with it again finds it there.
  bool add(const QByteArray& discId, const QByteArrayList& columns);
  void commit();  // each file by itself

 private:
  struct File {
    explicit File(const QString& path);
    sql::Connection database;
    std::optional<sql::Transaction> writing;
  };
  // Runs `work` on that file; turns what the engine throws into words.
  static void guarded(const QString& path, const std::function<void()>& work);

  std::array<std::unique_ptr<File>, std::tuple_size_v<CdDataPaths>> files_;
};

}  // namespace korvane
