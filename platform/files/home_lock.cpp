#include "platform/files/home_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

#include "platform/file_system.h"
#include "platform/path_text.h"

namespace korvane {

HomeLock::HomeLock(const QString& home) : path_(FileSystem::BuildPath(home, u"korvane.lock"_s)) {}

HomeLock::~HomeLock() {
  if (file_ >= 0) ::close(file_);
}

bool HomeLock::taken() {
  if (file_ >= 0) return false;
  file_ = ::open(fromPath(path_).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (file_ < 0 || ::flock(file_, LOCK_EX | LOCK_NB) == 0) return false;
  const bool held = errno == EWOULDBLOCK;
  ::close(std::exchange(file_, -1));
  return held;
}

}  // namespace korvane
