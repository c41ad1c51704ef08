// A trash can that is a list of paths.
#pragma once

#include "platform/trash.h"
#include "tests/fakes/fake_file_system.h"

namespace korvane {

class FakeTrash : public Trash {
 public:
  explicit FakeTrash(FileSystem& files) : files_(files) {}
  QString failure;  // of every put, in words; empty for none

  std::optional<QString> put(const QString& path, QString* error) override {
    const QString in = u"/trash/%1-"_s.arg(++count_) + path.section(u'/', -1);
    if (failure.isEmpty() && files_.MoveFile(path, in)) return in;
    if (error) *error = failure;
    return std::nullopt;
  }
  bool takeBack(const QString& inTrash, const QString& path, QString*) override {
    return !files_.FileExists(path) && files_.MoveFile(inTrash, path);
  }

 private:
  FileSystem& files_;
  int count_ = 0;
};

}  // namespace korvane
