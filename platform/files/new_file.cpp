#include "platform/files/new_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QDirIterator>
#include <QFile>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace korvane {
namespace {

QByteArray directoryOf(const QByteArray& path) {
  const qsizetype slash = path.lastIndexOf('/');
  return slash < 0 ? QByteArray(".") : path.first(std::max<qsizetype>(slash, 1));
}

constexpr char kBegin[] = ".korvane-", kEnd = '~';  // of a successor's name

QByteArray beginning(const char* kind) {
  return QByteArray(kBegin) + kind;
}

// Where a path leads when its last part is a symbolic link, dangling or not. False with errno.
bool followLinks(QByteArray& path) {
  constexpr int kMostLinks = 40;
  for (int links = 0; links < kMostLinks; ++links) {
    char to[PATH_MAX];
    const ssize_t length = ::readlink(path.constData(), to, sizeof to);
    if (length < 0) return errno == EINVAL || errno == ENOENT;
    const QByteArray link(to, length);
    path = link.startsWith('/') ? link : directoryOf(path) + '/' + link;
  }
  errno = ELOOP;
  return false;
}

}  // namespace

NewFile::NewFile(FileCalls& calls, const QByteArray& target, const char* kind)
    : calls_(calls), target_(target), kind_(kind) {
  if (check(followLinks(target_))) open();
}

NewFile::~NewFile() {
  if (file_ >= 0) calls_.close(file_);
  if (!temporary_.isEmpty()) calls_.unlink(temporary_.constData());
}

void NewFile::open() {
  struct stat old;
  const bool replaces = ::stat(target_.constData(), &old) == 0;
  if (replaces && !S_ISREG(old.st_mode)) {
    failure_ = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    return;
  }
  for (int attempts = 0; attempts < 100 && file_ < 0; ++attempts) {
    file_ = openTemporary(replaces ? 0600 : 0666);
    if (file_ < 0 && errno != EEXIST) break;
  }
  if (!check(file_ >= 0)) return temporary_.clear();
  // File systems without permissions refuse this; the narrower ones above then stay.
  if (replaces) calls_.fchmod(file_, old.st_mode & 07777);
}

bool NewFile::isLeftover(QByteArrayView name) {
  return name.startsWith(kBegin) && name.endsWith(kEnd);
}

int NewFile::openTemporary(mode_t mode) {
  static std::atomic<int> counter{0};
  temporary_ = directoryOf(target_) + '/' + beginning(kind_) + QByteArray::number(::getpid()) +
               '-' + QByteArray::number(counter++) + kEnd;
  const int file = calls_.open(temporary_.constData(), O_WRONLY | O_CREAT | O_EXCL, mode);
  if (file < 0 || !*kind_) return file;
  ::flock(file, LOCK_EX);
  struct stat status;
  if (::fstat(file, &status) != 0 || status.st_nlink > 0) return file;
  calls_.close(file);  // it was taken for a left-over before it had its lock
  errno = EEXIST;
  return -1;
}

bool NewFile::check(bool succeeded) {
  if (!succeeded && failure_ == 0) failure_ = errno ? errno : EIO;
  return failure_ == 0;
}

bool NewFile::write(QByteArrayView bytes) {
  if (failure_ || !check(writeAll(calls_, file_, bytes))) return false;
  written_ += bytes.size();
  return true;
}

bool NewFile::rewrite(qint64 at, QByteArrayView bytes) {
  while (failure_ == 0 && !bytes.isEmpty()) {
    const ssize_t count = calls_.pwrite(file_, bytes.data(), static_cast<size_t>(bytes.size()), at);
    if (count < 0 && errno == EINTR) continue;
    if (!check(count > 0)) return false;
    bytes = bytes.sliced(count);
    at += count;
  }
  return failure_ == 0;
}

bool NewFile::commit() {
  if (failure_) return false;
  struct stat status;
  if (!check(calls_.fstat(file_, &status) == 0)) return false;
  if (status.st_size != written_) failure_ = EIO;
  if (failure_ || !check(calls_.fsync(file_) == 0)) return false;
  if (!check(calls_.close(std::exchange(file_, -1)) == 0)) return false;
  if (!check(calls_.rename(temporary_.constData(), target_.constData()) == 0)) return false;
  temporary_.clear();
  syncDirectory();
  return true;
}

// The new file stands already: a file system that cannot sync a directory is no failure.
void NewFile::syncDirectory() {
  const int directory = calls_.open(directoryOf(target_).constData(), O_RDONLY | O_DIRECTORY, 0);
  if (directory < 0) return;
  calls_.fsync(directory);
  calls_.close(directory);
}

void removeLeftOvers(const QByteArray& folder, const char* kind) {
  QDirIterator walk(QFile::decodeName(folder),
                    {QFile::decodeName(beginning(kind) + "[0-9]*-[0-9]*~")},
                    QDir::Files | QDir::Hidden | QDir::NoSymLinks);
  while (walk.hasNext()) {
    const QByteArray path = QFile::encodeName(walk.next());
    const int file = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
    if (file < 0) continue;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) ::unlink(path.constData());
    ::close(file);
  }
}

bool writeAll(FileCalls& calls, int file, QByteArrayView bytes) {
  while (!bytes.isEmpty()) {
    const ssize_t count = calls.write(file, bytes.data(), static_cast<size_t>(bytes.size()));
    if (count < 0 && errno == EINTR) continue;
    if (count == 0) errno = EIO;
    if (count <= 0) return false;
    bytes = bytes.sliced(count);
  }
  return true;
}

QString fileFailure(QLatin1StringView doing, const QString& path, int failure) {
  struct Words {
    int number;
    const char* why;
  };
  static constexpr Words kWords[] = {
      {ENOSPC, "The disk is full. Free some room on it and try again."},
      {EDQUOT, "Your share of the disk is full. Free some room and try again."},
      {EROFS, "The disk is read only. Make it writable, or choose another place."},
      {EACCES, "Permission is refused. Give this user the right to write in that folder."},
      {EPERM, "Permission is refused. Give this user the right to write in that folder."},
      {EIO, "The disk reports a fault. Check the disk and its cable."},
      {ENOENT, "Its folder does not exist. Make the folder, or choose another place."},
      {ENOTDIR, "A part of its path is a file, not a folder. Choose another place."},
      {EISDIR, "A folder has that name. Choose another name."},
      {ELOOP, "Its links lead in a circle. Remove the link and try again."},
      {ENAMETOOLONG, "The name is too long. Choose a shorter one."},
  };
  const auto* words = std::find_if(std::begin(kWords), std::end(kWords),
                                   [&](const Words& row) { return row.number == failure; });
  const QString why = words != std::end(kWords) ? QString::fromLatin1(words->why)
                                                : QString::fromLocal8Bit(std::strerror(failure)) +
                                                      u". Check the place and try again."_s;
  return u"Could not %1 %2. %3"_s.arg(doing, path, why);
}

}  // namespace korvane
