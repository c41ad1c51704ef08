#include "platform/files/folded_folders.h"

#include <dirent.h>
#include <sys/stat.h>
#include <time.h>

#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr qint64 kSecond = 1'000'000'000;
constexpr qint64 kCoarsestClock = 2 * kSecond;  // of the file systems in use: FAT
constexpr qsizetype kMostFolders = 128;

qint64 nanoseconds(const timespec& time) {
  return time.tv_sec * kSecond + time.tv_nsec;
}

QHash<QString, QByteArray> namesIn(const QByteArray& folder) {
  QHash<QString, QByteArray> names;
  DIR* listing = ::opendir(folder.constData());
  if (!listing) return names;
  while (const dirent* entry = ::readdir(listing)) {
    const QByteArray name(entry->d_name);
    QByteArray& kept = names[foldedName(toPath(name))];
    if (kept.isEmpty() || name < kept) kept = name;
  }
  ::closedir(listing);
  return names;
}

}  // namespace

std::optional<QByteArray> FoldedFolders::nameOf(const QByteArray& folder, const QString& name) {
  const std::lock_guard lock(mutex_);
  const Contents* held = contents(folder);
  if (!held) return std::nullopt;
  const auto found = held->names.constFind(foldedName(name));
  if (found == held->names.cend()) return std::nullopt;
  return *found;
}

const FoldedFolders::Contents* FoldedFolders::contents(const QByteArray& folder) {
  struct stat status;
  if (::stat(folder.constData(), &status) != 0 || !S_ISDIR(status.st_mode)) return nullptr;
  const qint64 changed = nanoseconds(status.st_mtim);
  const auto remembered = folders_.constFind(folder);
  if (remembered != folders_.cend() && remembered->settled && remembered->changed == changed &&
      remembered->inode == status.st_ino && remembered->device == status.st_dev)
    return &*remembered;

  timespec now;
  ::clock_gettime(CLOCK_REALTIME, &now);
  if (folders_.size() >= kMostFolders) folders_.clear();
  const bool settled = nanoseconds(now) - changed > kCoarsestClock;
  return &*folders_.insert(folder,
                           {changed, status.st_dev, status.st_ino, settled, namesIn(folder)});
}

}  // namespace korvane
