// The file system of this machine.
#pragma once

#include "platform/file_system.h"
#include "platform/files/file_calls.h"
#include "platform/files/folded_folders.h"

namespace korvane {

class DiskFileSystem : public FileSystem {
 public:
  explicit DiskFileSystem(FileCalls& calls = FileCalls::posix()) : calls_(calls) {}

  std::optional<QString> resolve(const QString& path) const override;
  bool FileExists(const QString& path) const override;
  bool FolderExists(const QString& path) const override;
  bool CreateFolder(const QString& path) override;
  bool DeleteFile(const QString& path) override;
  bool DeleteFolder(const QString& path) override;
  bool MoveFile(const QString& from, const QString& to) override;
  bool copyInPieces(const QString& from, const QString& to, const CopyWatch& watch,
                    QString* error) override;
  qint64 size(const QString& path) const override;
  QStringList SubFolders(const QString& path) const override;
  QStringList Files(const QString& path) const override;
  Stamp stamp(const QString& path) const override;
  std::optional<QByteArray> read(const QString& path, qint64 limit = 64 << 20) const override;
  bool replace(const QString& path, const QByteArray& bytes, QString* error = nullptr) override;
  bool append(const QString& path, const QByteArray& bytes) override;
  QStringList volumes() const override;

 private:
  std::optional<QByteArray> find(const QString& path) const;  // resolve(), as bytes on disk
  QByteArray target(const QString& path) const;  // where a file of that path stands or would stand
  QStringList names(const QString& path, bool folders) const;

  FileCalls& calls_;
  mutable FoldedFolders folded_;
};

}  // namespace korvane
