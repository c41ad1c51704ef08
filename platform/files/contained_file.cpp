#include "platform/files/contained_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>

#include "platform/path_text.h"

namespace korvane {
namespace {

// Without links, "." and ".."; empty when there is no such file.
QByteArray canonical(const QString& path) {
  const QByteArray bytes = fromPath(path);
  if (bytes.isEmpty() || bytes.contains('\0') || bytes.size() >= PATH_MAX) return {};
  char* found = ::realpath(bytes.constData(), nullptr);
  const QByteArray result(found);
  std::free(found);
  return result;
}

bool isReadableFile(const QByteArray& path) {
  const int place = ::open(path.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
  if (place < 0) return false;
  struct stat status;
  const bool regular = ::fstat(place, &status) == 0 && S_ISREG(status.st_mode);
  ::close(place);
  return regular && ::access(path.constData(), R_OK) == 0;
}

}  // namespace

std::optional<QString> containedFile(const QString& root, const QString& path) {
  QByteArray folder = canonical(root);
  if (folder.isEmpty()) return std::nullopt;
  if (!folder.endsWith('/')) folder += '/';
  const QByteArray file = canonical(path);
  if (!file.startsWith(folder) || !isReadableFile(file)) return std::nullopt;
  return toPath(file);
}

}  // namespace korvane
