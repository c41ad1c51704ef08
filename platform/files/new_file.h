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
  // replaced. An old file's permissions pass to the new one.
  NewFile(FileCalls& calls, const QByteArray& target);
  ~NewFile();  // removes what was not committed
  NewFile(const NewFile&) = delete;

  // Both are false from the first failure on.
  bool write(QByteArrayView bytes);
  bool commit();  // checks the length, syncs, renames, syncs the directory

  // Whether a file of that name is what a crash has left of a successor: it is nobody's.
  static bool isLeftover(QByteArrayView name);

  int failure() const { return failure_; }  // the errno of what failed first, 0 when nothing did

 private:
  void open();
  bool check(bool succeeded);
  void syncDirectory();

  FileCalls& calls_;
  QByteArray target_, temporary_;
  int file_ = -1;
  int failure_ = 0;
  qint64 written_ = 0;
};

// Writes all bytes, in as many calls as it takes. False with errno.
bool writeAll(FileCalls& calls, int file, QByteArrayView bytes);

// The failure in words: what could not be done to which file, why, and what to do.
QString fileFailure(QLatin1StringView doing, const QString& path, int failure);

}  // namespace korvane
