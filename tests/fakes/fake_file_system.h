// A disk in memory, which can be full. Paths fold case as the real one does.
#pragma once

#include <map>

#include "platform/file_system.h"

namespace korvane {

class FakeFileSystem : public FileSystem {
 public:
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
  QStringList volumes() const override { return mounted; }

  void put(const QString& path, const QByteArray& bytes);  // whatever the room, with its folders
  QByteArray bytes(const QString& path) const;             // empty when missing

  QStringList mounted;
  qint64 room = -1;  // bytes that can still be written; -1 for no end

 private:
  struct Node {
    QString path;
    bool folder;
    QByteArray bytes;
    qint64 change = 0;  // the number of its last one
  };
  static QString key(const QString& path);
  const Node* node(const QString& path) const;
  QStringList names(const QString& path, bool folders) const;
  bool take(const QString& path, qint64 count, QString* error);

  std::map<QString, Node> nodes_;
  qint64 changes_ = 0;
};

}  // namespace korvane
