#include "library/scan/folder_walk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

namespace korvane {
namespace {

struct CloseDirectory {
  void operator()(DIR* directory) const { ::closedir(directory); }
};

bool isSelf(const char* name) {
  return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

// What an entry is, links followed; 0 for what is neither directory nor file, or is gone.
mode_t kindOf(int directory, const dirent& entry) {
  if (entry.d_type == DT_DIR) return S_IFDIR;
  if (entry.d_type == DT_REG) return S_IFREG;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return 0;
  struct stat status {};
  if (::fstatat(directory, entry.d_name, &status, 0) != 0) return 0;
  return status.st_mode & S_IFMT;
}

}  // namespace

FolderWalk::FolderWalk(int shallowest, int deepest, Found found, Failed failed)
    : shallowest_(shallowest),
      deepest_(deepest),
      found_(std::move(found)),
      failed_(std::move(failed)) {}

void FolderWalk::run(const QByteArray& root) {
  above_.clear();
  visit(root, 0);
}

bool FolderWalk::visit(const QByteArray& path, int depth) {
  const std::unique_ptr<DIR, CloseDirectory> directory(::opendir(path.constData()));
  struct stat status {};
  if (!directory || ::fstat(::dirfd(directory.get()), &status) != 0) {
    failed_(path, errno);
    return true;
  }
  const Id self{status.st_dev, status.st_ino};
  if (std::find(above_.begin(), above_.end(), self) != above_.end()) return true;

  Folder folder{path, depth, {}};
  std::vector<QByteArray> below;
  errno = 0;
  while (const dirent* entry = ::readdir(directory.get())) {
    if (isSelf(entry->d_name)) continue;
    const mode_t kind = kindOf(::dirfd(directory.get()), *entry);
    if (kind == S_IFREG) folder.files.emplace_back(entry->d_name);
    if (kind == S_IFDIR && depth < deepest_) below.emplace_back(entry->d_name);
    errno = 0;
  }
  if (errno != 0) failed_(path, errno);
  if (depth >= shallowest_ && !found_(std::move(folder))) return false;
  above_.push_back(self);
  const QByteArray front = path.endsWith('/') ? path : path + '/';
  const bool goOn = std::all_of(below.begin(), below.end(), [&](const QByteArray& name) {
    return visit(front + name, depth + 1);
  });
  above_.pop_back();
  return goOn;
}

}  // namespace korvane
