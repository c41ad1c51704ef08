// The calls of a disk that can be full.
#pragma once

#include <cerrno>

#include "platform/files/file_calls.h"

namespace korvane {

class FullDisk : public FileCalls {
 public:
  ssize_t write(int file, const void* bytes, size_t count) override {
    errno = ENOSPC;
    return full ? -1 : FileCalls::write(file, bytes, count);
  }
  bool full = false;
};

}  // namespace korvane
