// The system calls by which files are written, as a door: a test can fail one or die at it. Results
// and errno as in POSIX.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

namespace korvane {

class FileCalls {
 public:
  virtual ~FileCalls() = default;
  virtual int open(const char* path, int flags, mode_t mode);
  virtual ssize_t read(int file, void* bytes, size_t count);
  virtual ssize_t write(int file, const void* bytes, size_t count);
  virtual ssize_t pwrite(int file, const void* bytes, size_t count, off_t at);
  virtual int fstat(int file, struct stat* status);
  virtual int fchmod(int file, mode_t mode);
  virtual int fsync(int file);
  virtual int close(int file);
  virtual int rename(const char* from, const char* to);
  virtual int unlink(const char* path);

  static FileCalls& posix();  // the real ones, for the whole run
};

}  // namespace korvane
