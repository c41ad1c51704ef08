// The one way a file is replaced: its successor is written beside it and takes its name when whole
// and on the disk. Until commit() has succeeded, and after a crash at any point, the old file
// stands.
#pragma once

#include "platform/files/file_calls.h"
#include "platform/text.h"

namespace korvane {

class NewFile {
 public:
  // For the file at `target` (bytes of a path). A symbolic link stays, what it points at is
  // replaced. An old file's permissions pass to the new one. `kind`, for files that take long to
  // write: a part of the temporary name, by which removeLeftOvers() knows what a crash left.
  NewFile(FileCalls& calls, const QByteArray& target, const char* kind = "");
  ~NewFile();  // removes what was not committed
  NewFile(const NewFile&) = delete;

  // All three are false from the first failure on.
  bool write(QByteArrayView bytes);
  bool rewrite(qint64 at, QByteArrayView bytes);  // in place of bytes that were written
  bool commit();  // checks the length, syncs, renames, syncs the directory

  // Whether a file of that name is a successor that is written, or that a crash has left: no
  // user's.
  static bool isLeftover(QByteArrayView name);

  qint64 written() const { return written_; }  // bytes
  int failure() const { return failure_; }     // the errno of what failed first, 0 when nothing did

 private:
  void open();
  int openTemporary(mode_t mode);
  bool check(bool succeeded);
  void syncDirectory();

  FileCalls& calls_;
  QByteArray target_, temporary_;
  const char* kind_;
  int file_ = -1;
  int failure_ = 0;
  qint64 written_ = 0;
};

// Removes from a folder (bytes of a path) the temporary files of that kind that nobody writes any
// more, whoever left them. Files of that kind are locked (flock) as long as they are written; where
// a file system has no locks, they stay.
void removeLeftOvers(const QByteArray& folder, const char* kind);

// Writes all bytes, in as many calls as it takes. False with errno.
bool writeAll(FileCalls& calls, int file, QByteArrayView bytes);

// The failure in words: what could not be done to which file, why, and what to do.
QString fileFailure(QLatin1StringView doing, const QString& path, int failure);

}  // namespace korvane
