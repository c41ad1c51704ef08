#include "platform/files/file_calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace korvane {

int FileCalls::open(const char* path, int flags, mode_t mode) {
  return ::open(path, flags | O_CLOEXEC, mode);
}
ssize_t FileCalls::read(int file, void* bytes, size_t count) {
  return ::read(file, bytes, count);
}
ssize_t FileCalls::write(int file, const void* bytes, size_t count) {
  return ::write(file, bytes, count);
}
ssize_t FileCalls::pwrite(int file, const void* bytes, size_t count, off_t at) {
  return ::pwrite(file, bytes, count, at);
}
int FileCalls::fstat(int file, struct stat* status) {
  return ::fstat(file, status);
}
int FileCalls::fchmod(int file, mode_t mode) {
  return ::fchmod(file, mode);
}
int FileCalls::fsync(int file) {
  return ::fsync(file);
}
int FileCalls::close(int file) {
  return ::close(file);
}
int FileCalls::rename(const char* from, const char* to) {
  return std::rename(from, to);
}
int FileCalls::unlink(const char* path) {
  return ::unlink(path);
}

FileCalls& FileCalls::posix() {
  static FileCalls calls;
  return calls;
}

}  // namespace korvane
