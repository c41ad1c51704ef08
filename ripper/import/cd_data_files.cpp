#include "ripper/import/cd_data_files.h"

#include <stdexcept>

namespace korvane {

namespace {

[[noreturn]] void fail(const QString& words) {
  throw std::runtime_error(words.toStdString());
}

}  // namespace

CdDataFiles::CdDataFiles(FileSystem& files, const QString& directory) {
  const CdDataPaths paths = cdDataPaths(directory);
  QString error;
  if (!files.CreateFolder(directory)) fail(u"The directory %1 cannot be made."_s.arg(directory));
  for (const QString& path : paths)
    if (!makeDiscDatabase(files, path, &error)) fail(error);
  for (size_t i = 0; i < paths.size(); ++i)
    guarded(paths[i], [&] {
      files_[i] = std::make_unique<File>(files.resolve(paths[i]).value_or(paths[i]));
    });
}

void CdDataFiles::guarded(const QString& path, const std::function<void()>& work) {
  try {
    work();
  } catch (const DatabaseError& failure) {
    fail(discDatabaseTrouble(failure, path));
  }
}

// All that a transaction changes stays in memory: what is written before its end shuts out whoever
// looks up.
CdDataFiles::File::File(const QString& path) : database(path, sql::Connection::ReadWrite) {
  database.script("PRAGMA cache_size = -65536");  // KiB, at most
}

bool CdDataFiles::add(const QByteArray& discId, const QByteArrayList& columns) {
  File& file = *files_[qChecksum(discId) % files_.size()];
  bool isNew = false;
  guarded(file.database.path(), [&] {
    if (!file.writing) file.writing.emplace(file.database);
    isNew = !file.database.number("SELECT 1 FROM cdData WHERE DISCID = ?1 COLLATE TEXTORDER",
                                  QByteArrayView(discId));
    if (isNew) insertDisc(file.database, discId, columns);
  });
  return isNew;
}

void CdDataFiles::commit() {
  for (const auto& file : files_) {
    if (!file->writing) continue;
    guarded(file->database.path(), [&] { file->writing->commit(); });
    file->writing.reset();
  }
}

}  // namespace korvane
