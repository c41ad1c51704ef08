#include "ftp/folder_transfer.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDir>

#include "ftp/listing.h"

namespace korvane {
namespace {

constexpr int kDepth = 32;  // folders within folders
constexpr size_t kMostFiles = 1'000'000;
constexpr int kMostRefusals = 20;

// All that was written below the folder goes to the disk.
void settle(const QString& folder) {
  const int handle =
      ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  ::syncfs(handle);
  ::close(handle);
}

}  // namespace

bool FolderTransfer::gather(const QByteArray& remote, const QString& local, int depth) {
  news_(0, 0, local.section(u'/', -1));
  const std::optional<cDirList> list = ftp_.listOf(remote);
  if (!list) return false;
  localFolders_ << local;
  for (const cDirItem& item : *list) {
    const QString refusal = nameRefusal(item.bytes);
    if (!refusal.isEmpty()) {
      if (refusals_.size() < kMostRefusals) refusals_ << refusal;
      continue;
    }
    if (item.link || found_.size() >= kMostFiles) continue;
    const QByteArray there = remote + (remote.endsWith('/') ? "" : "/") + item.bytes;
    const QString here = local + u'/' + item.fileName;
    if (!item.directory())
      found_.push_back({here, there, item.size, item.modified.toString(Qt::ISODate)});
    else if (depth < kDepth && !gather(there, here, depth + 1))
      return false;
  }
  return true;
}

bool FolderTransfer::download(const QByteArray& remote, const QString& local) {
  if (!gather(remote, local, 0)) return false;
  for (const QString& folder : std::as_const(localFolders_)) QDir().mkpath(folder);
  const int count = static_cast<int>(found_.size());
  for (const File& file : found_) {
    news_(done_ + 1, count, file.local.section(u'/', -1));
    if (!ftp_.fetch(file.local, file.remote, file.size, file.date)) return false;
    ++done_;
  }
  settle(local);
  return true;
}

bool FolderTransfer::gatherHere(const QString& local, const QByteArray& remote, int depth) {
  remoteFolders_ << remote;
  const QDir folder(local);
  const auto entries = folder.entryInfoList(
      QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks,
      QDir::Name);
  for (const QFileInfo& entry : entries) {
    const QByteArray there = remote + '/' + QFile::encodeName(entry.fileName());
    if (entry.isFile() && found_.size() < kMostFiles)
      found_.push_back({entry.filePath(), there, entry.size(), {}});
    else if (entry.isDir() && depth < kDepth && !gatherHere(entry.filePath(), there, depth + 1))
      return false;
  }
  return true;
}

bool FolderTransfer::upload(const QString& local, const QByteArray& remote) {
  if (!gatherHere(local, remote, 0)) return false;
  // One that is there already refuses to be made; what cannot be made fails with its first file.
  for (const QByteArray& folder : std::as_const(remoteFolders_)) {
    ftp_.makeFolder(folder);
    if (ftp_.cancelled() || !ftp_.connected()) return false;
  }
  const int count = static_cast<int>(found_.size());
  for (const File& file : found_) {
    news_(done_ + 1, count, file.local.section(u'/', -1));
    if (!ftp_.send(file.local, file.remote)) return false;
    ++done_;
  }
  return true;
}

}  // namespace korvane
