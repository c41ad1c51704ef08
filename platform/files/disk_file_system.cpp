#include "platform/files/disk_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/files/mount_table.h"
#include "platform/files/new_file.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

QByteArray onDisk(const QString& path) {
  return fromPath(FileSystem::slashed(path));
}

bool usable(const QByteArray& path) {
  return !path.isEmpty() && !path.contains('\0');
}

bool exists(const QByteArray& path) {
  struct stat status;
  return ::stat(path.constData(), &status) == 0;
}

bool isFolder(const QByteArray& path) {
  struct stat status;
  return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

QByteArray below(const QByteArray& folder, const QByteArray& name) {
  return folder.isEmpty() || folder.endsWith('/') ? folder + name : folder + '/' + name;
}

// An open file that closes itself.
class OpenFile {
 public:
  OpenFile(FileCalls& calls, const QByteArray& path, int flags, mode_t mode = 0)
      : calls_(calls), file_(calls.open(path.constData(), flags | O_NONBLOCK, mode)) {}
  ~OpenFile() {
    if (file_ >= 0) calls_.close(file_);
  }
  OpenFile(const OpenFile&) = delete;

  // The bytes it holds; -1 when it is not open or no regular file.
  qint64 size() const {
    struct stat status;
    const bool regular = file_ >= 0 && calls_.fstat(file_, &status) == 0 && S_ISREG(status.st_mode);
    return regular ? status.st_size : -1;
  }
  ssize_t read(char* bytes, qint64 count) const {
    ssize_t got;
    do got = calls_.read(file_, bytes, static_cast<size_t>(count));
    while (got < 0 && errno == EINTR);
    return got;
  }
  int file() const { return file_; }

 private:
  FileCalls& calls_;
  int file_;
};

// What is left of an open file, at most `limit` bytes; nothing when there is more or it fails. The
// size is a hint only: files of /proc say 0.
std::optional<QByteArray> readAll(const OpenFile& file, qint64 size, qint64 limit) {
  constexpr qint64 kStep = 64 << 10;
  QByteArray bytes(std::min(size, limit) + 1, Qt::Uninitialized);
  qint64 have = 0;
  for (;;) {
    const ssize_t got = file.read(bytes.data() + have, bytes.size() - have);
    if (got < 0) return std::nullopt;
    have += got;
    if (have > limit) return std::nullopt;
    if (got == 0) break;
    if (have == bytes.size()) bytes.resize(std::min(have + kStep, limit + 1));
  }
  bytes.resize(have);
  return bytes;
}

}  // namespace

std::optional<QByteArray> DiskFileSystem::find(const QString& path) const {
  const QByteArray asTold = onDisk(path);
  if (!usable(asTold)) return std::nullopt;
  if (exists(asTold)) return asTold;
  QByteArray found = asTold.startsWith('/') ? "/" : "";
  for (const QByteArray& part : asTold.split('/')) {
    if (part.isEmpty()) continue;
    QByteArray next = below(found, part);
    if (!exists(next)) {
      const auto name = folded_.nameOf(found.isEmpty() ? "." : found, toPath(part));
      if (!name) return std::nullopt;
      next = below(found, *name);
    }
    found = next;
  }
  if (!exists(found)) return std::nullopt;
  return found;
}

QByteArray DiskFileSystem::target(const QString& path) const {
  if (const auto there = find(path)) return *there;
  const QString wanted = slashed(path);
  const auto folder = find(GetParentFolderName(wanted));
  if (!folder) return onDisk(wanted);
  return below(*folder, fromPath(QStringView(wanted).sliced(wanted.lastIndexOf(u'/') + 1)));
}

std::optional<QString> DiskFileSystem::resolve(const QString& path) const {
  const auto found = find(path);
  if (!found) return std::nullopt;
  return toPath(*found);
}

bool DiskFileSystem::FileExists(const QString& path) const {
  const auto found = find(path);
  return found && !isFolder(*found);
}

bool DiskFileSystem::FolderExists(const QString& path) const {
  const auto found = find(path);
  return found && isFolder(*found);
}

bool DiskFileSystem::CreateFolder(const QString& path) {
  if (!usable(onDisk(path))) return false;
  if (const auto found = find(path)) return isFolder(*found);
  const QString parent = GetParentFolderName(path);
  if (!parent.isEmpty() && !CreateFolder(parent)) return false;
  const QByteArray made = target(path);
  return ::mkdir(made.constData(), 0777) == 0 || isFolder(made);
}

bool DiskFileSystem::DeleteFile(const QString& path) {
  const auto found = find(path);
  return found && !isFolder(*found) && calls_.unlink(found->constData()) == 0;
}

bool DiskFileSystem::DeleteFolder(const QString& path) {
  const auto found = find(path);
  if (!found || !isFolder(*found)) return false;
  QByteArray folder = *found;
  while (folder.size() > 1 && folder.endsWith('/')) folder.chop(1);
  if (folder == "/") return false;
  std::error_code failure;
  std::filesystem::remove_all(folder.toStdString(), failure);
  return !failure;
}

bool DiskFileSystem::MoveFile(const QString& from, const QString& to) {
  const auto source = find(from), folder = find(GetParentFolderName(to));
  if (!source || !folder) return false;
  const QString name = slashed(to);
  const QByteArray target = below(*folder, fromPath(name.mid(name.lastIndexOf(u'/') + 1)));
  return calls_.rename(source->constData(), target.constData()) == 0;
}

bool DiskFileSystem::copyInPieces(const QString& from, const QString& to, const CopyWatch& watch,
                                  QString* error) {
  const auto failed = [&](const QString& words) {
    if (error) *error = words;
    return false;
  };
  const auto source = find(from);
  if (!source) return failed(u"%1 is not there any more."_s.arg(from));
  QByteArray copy = target(to);
  if (isFolder(copy)) copy = below(copy, source->sliced(source->lastIndexOf('/') + 1));
  std::error_code same;
  if (std::filesystem::equivalent(source->toStdString(), copy.toStdString(), same)) return true;

  const OpenFile old(calls_, *source, O_RDONLY);
  if (old.size() < 0) return failed(fileFailure("read"_L1, from, errno));
  NewFile made(calls_, copy);
  QByteArray bytes(256 << 10, Qt::Uninitialized);
  qint64 done = 0;
  ssize_t got;
  while ((got = old.read(bytes.data(), bytes.size())) > 0) {
    if (!made.write(QByteArrayView(bytes).first(got)))
      return failed(fileFailure("copy"_L1, from, made.failure()));
    if (!watch(done += got)) return failed(u"The copy of %1 was stopped."_s.arg(from));
  }
  if (got < 0) return failed(fileFailure("read"_L1, from, errno));
  return made.commit() || failed(fileFailure("copy"_L1, from, made.failure()));
}

qint64 DiskFileSystem::size(const QString& path) const {
  const auto found = find(path);
  struct stat status;
  const bool file = found && ::stat(found->constData(), &status) == 0 && S_ISREG(status.st_mode);
  return file ? status.st_size : -1;
}

QStringList DiskFileSystem::names(const QString& path, bool folders) const {
  const auto folder = find(path);
  DIR* listing = folder ? ::opendir(folder->constData()) : nullptr;
  if (!listing) return {};
  QStringList names;
  while (const dirent* entry = ::readdir(listing)) {
    const QByteArray name(entry->d_name);
    if (name == "." || name == ".." || NewFile::isLeftover(name)) continue;
    const bool plain = entry->d_type == DT_DIR || entry->d_type == DT_REG;
    const bool folderHere = plain ? entry->d_type == DT_DIR : isFolder(below(*folder, name));
    if (folderHere == folders) names.append(toPath(name));
  }
  ::closedir(listing);
  return names;
}

QStringList DiskFileSystem::SubFolders(const QString& path) const {
  return names(path, true);
}

QStringList DiskFileSystem::Files(const QString& path) const {
  return names(path, false);
}

FileSystem::Stamp DiskFileSystem::stamp(const QString& path) const {
  constexpr qint64 kSecond = 1'000'000'000;
  struct stat status;
  const QByteArray name = onDisk(path);
  if (!usable(name) || ::stat(name.constData(), &status) != 0) return {};
  return {status.st_size, status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec, status.st_ino};
}

std::optional<QByteArray> DiskFileSystem::read(const QString& path, qint64 limit) const {
  const auto found = find(path);
  if (!found) return std::nullopt;
  const OpenFile file(calls_, *found, O_RDONLY);
  const qint64 size = file.size();
  if (size < 0 || size > limit) return std::nullopt;
  return readAll(file, size, limit);
}

bool DiskFileSystem::replace(const QString& path, const QByteArray& bytes, QString* error) {
  const QByteArray file = target(path);
  int failure = usable(file) ? 0 : ENOENT;
  if (!failure) {
    NewFile made(calls_, file);
    if (made.write(bytes) && made.commit()) return true;
    failure = made.failure();
  }
  if (error) *error = fileFailure("save"_L1, path, failure);
  return false;
}

bool DiskFileSystem::append(const QString& path, const QByteArray& bytes) {
  const QByteArray name = target(path);
  if (!usable(name)) return false;
  const OpenFile file(calls_, name, O_WRONLY | O_CREAT | O_APPEND, 0666);
  return file.size() >= 0 && writeAll(calls_, file.file(), bytes);
}

QStringList DiskFileSystem::volumes() const {
  const OpenFile table(calls_, "/proc/self/mountinfo", O_RDONLY);
  const auto bytes = readAll(table, 0, 4 << 20);
  QStringList found = volumesOf(bytes.value_or(QByteArray()));
  found.removeIf([](const QString& point) { return !isFolder(fromPath(point)); });
  if (!found.contains(u"/"_s)) found.prepend(u"/"_s);  // a container's has no device of its own
  return found;
}

}  // namespace korvane
