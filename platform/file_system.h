// gFso: the one file-system helper. Paths use '/'; '\' is accepted. Look-ups fold case, so a name
// written "Music" finds "music". The const members may be called from any thread.
#pragma once

#include <functional>
#include <optional>

#include "platform/text.h"

namespace korvane {

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The path on disk that `path` means: itself when it exists, else the first match component by
  // component without regard to case. Nothing when there is none.
  virtual std::optional<QString> resolve(const QString& path) const = 0;

  virtual bool FileExists(const QString& path) const = 0;
  virtual bool FolderExists(const QString& path) const = 0;
  virtual bool CreateFolder(const QString& path) = 0;  // with missing parents; true when it stands
  virtual bool DeleteFile(const QString& path) = 0;

  // With all that it holds. After a failure some of it may be gone.
  virtual bool DeleteFolder(const QString& path) = 0;

  // Gives a file another name; what has that name already is replaced.
  virtual bool MoveFile(const QString& from, const QString& to) = 0;
  // Hears how many bytes of a copy are written, piece by piece; false ends the copy.
  using CopyWatch = std::function<bool(qint64 bytes)>;
  // Copies a file, into `to` where that is a folder. The copy takes its name when it is whole: one
  // that failed or was ended leaves nothing (false, with `error` in words). From any thread, on
  // which `watch` is called.
  virtual bool copyInPieces(const QString& from, const QString& to, const CopyWatch& watch,
                            QString* error) = 0;
  bool CopyFile(const QString& from, const QString& to) {
    return copyInPieces(
        from, to, [](qint64) { return true; }, nullptr);
  }
  virtual qint64 size(const QString& path) const = 0;             // bytes; -1 for what is no file
  virtual QStringList SubFolders(const QString& path) const = 0;  // names, in the order of the disk
  virtual QStringList Files(const QString& path) const = 0;       // names, in the order of the disk

  // What tells a file from what it was before: another one has another stamp.
  struct Stamp {
    qint64 size = -1;     // bytes; -1 when there is no such file
    qint64 modified = 0;  // nanoseconds since 1970
    quint64 inode = 0;
    bool operator==(const Stamp&) const = default;
  };
  virtual Stamp stamp(const QString& path) const = 0;  // of exactly that name, no look-up

  // The whole file; nothing when it cannot be read or is longer than `limit` bytes.
  virtual std::optional<QByteArray> read(const QString& path, qint64 limit = 64 << 20) const = 0;

  // Replaces the whole file: a temporary beside it, write, check, sync, rename, sync of the
  // directory. After a failure or a crash at any point the old file stands whole. `error` gets the
  // reason of a failure, in words.
  virtual bool replace(const QString& path, const QByteArray& bytes, QString* error = nullptr) = 0;

  // Adds to the end of the file, making it when missing. A failure may leave a part of it behind.
  virtual bool append(const QString& path, const QByteArray& bytes) = 0;

  // Mount points of fixed and network volumes, for files whose volume has moved.
  virtual QStringList volumes() const = 0;

  // Text alone; nothing is looked up on the disk. The results have '/' for every '\'.
  static QString BuildPath(const QString& folder, const QString& name);  // with a '/' between
  static QString GetParentFolderName(const QString& path);               // all before the last '/'
  static QString slashed(QString path);                                  // '\' turned into '/'
};

}  // namespace korvane
