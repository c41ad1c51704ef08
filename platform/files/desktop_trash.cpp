#include "platform/files/desktop_trash.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include "platform/file_system.h"
#include "platform/files/new_file.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

// A trash can: it holds the folders "files" and "info".
struct Can {
  QByteArray folder;
  QByteArray top;  // of its volume, which paths within are relative to; empty in the user's own one
};

QByteArray parentOf(const QByteArray& path) {
  const qsizetype slash = path.lastIndexOf('/');
  return slash < 0 ? QByteArray(".") : path.first(std::max<qsizetype>(slash, 1));
}

QByteArray nameOf(const QByteArray& path) {
  return path.sliced(path.lastIndexOf('/') + 1);
}

// The path without links, but for its last part. Empty with errno.
QByteArray absolute(const QByteArray& path) {
  char* parent = ::realpath(parentOf(path).constData(), nullptr);
  if (!parent) return {};
  QByteArray whole(parent);
  std::free(parent);
  if (!whole.endsWith('/')) whole += '/';
  return whole + nameOf(path);
}

std::optional<dev_t> deviceOf(const QByteArray& path) {
  struct stat status;
  if (::lstat(path.constData(), &status) != 0) return std::nullopt;
  return status.st_dev;
}

// Makes a folder for this user alone, its parents too. What has that name and is a link or another
// one's is refused: the can would be anywhere then.
bool makeOwnFolder(const QByteArray& path) {
  if (::mkdir(path.constData(), 0700) != 0 && errno == ENOENT) {
    if (!makeOwnFolder(parentOf(path)) || ::mkdir(path.constData(), 0700) != 0) return false;
  }
  struct stat status;
  if (::lstat(path.constData(), &status) != 0) return false;
  if (S_ISDIR(status.st_mode) && status.st_uid == ::getuid()) return true;
  errno = EACCES;
  return false;
}

bool makeCan(const QByteArray& folder) {
  return makeOwnFolder(folder) && makeOwnFolder(folder + "/files") &&
         makeOwnFolder(folder + "/info");
}

QByteArray topOf(QByteArray path, dev_t device) {
  while (path != "/" && deviceOf(parentOf(path)) == device) path = parentOf(path);
  return path;
}

// The can for a file on that volume. Nothing with errno.
std::optional<Can> canFor(const QByteArray& path, dev_t device) {
  QByteArray data = qgetenv("XDG_DATA_HOME");
  if (!data.startsWith('/')) data = qgetenv("HOME") + "/.local/share";
  const QByteArray own = data + "/Trash";
  if (makeCan(own) && deviceOf(own + "/files") == device) return Can{own, {}};
  const QByteArray top = topOf(parentOf(path), device), user = QByteArray::number(::getuid());
  const QByteArray base = top == "/" ? QByteArray() : top;
  struct stat shared;
  const bool sharedCan = ::lstat((base + "/.Trash").constData(), &shared) == 0 &&
                         S_ISDIR(shared.st_mode) && (shared.st_mode & S_ISVTX);
  if (sharedCan && makeCan(base + "/.Trash/" + user)) return Can{base + "/.Trash/" + user, base};
  if (makeCan(base + "/.Trash-" + user)) return Can{base + "/.Trash-" + user, base};
  return std::nullopt;
}

// Renames without replacing anything. False with errno.
bool renameOnly(const QByteArray& from, const QByteArray& to) {
  if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
    return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // The file system cannot promise it; the moment between the look and the move is left open.
  if (deviceOf(to)) {
    errno = EEXIST;
    return false;
  }
  return std::rename(from.constData(), to.constData()) == 0;
}

QByteArray infoFile(const QByteArray& can, const QByteArray& name) {
  return can + "/info/" + name + ".trashinfo";
}

// Says where a file came from. Exists already: false with EEXIST.
bool writeInfo(const QByteArray& path, const QByteArray& from) {
  FileCalls& calls = FileCalls::posix();
  const int file = calls.open(path.constData(), O_WRONLY | O_CREAT | O_EXCL, 0600);
  if (file < 0) return false;
  const QByteArray text = "[Trash Info]\nPath=" + from.toPercentEncoding("/") + "\nDeletionDate=" +
                          QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
  const bool written = writeAll(calls, file, text);
  const int failure = errno;
  const bool closed = calls.close(file) == 0;
  if (written && closed) return true;
  ::unlink(path.constData());
  if (!written) errno = failure;
  return false;
}

// The name in the can that a file gets at the try of that number.
QByteArray nameAtTry(const QByteArray& name, int number) {
  constexpr qsizetype kLongest = 230;  // bytes; the ending of its information comes behind it
  const qsizetype dot = std::max<qsizetype>(name.lastIndexOf('.'), 0);
  const QByteArray suffix = dot > 0 && name.size() - dot < 20 ? name.sliced(dot) : QByteArray();
  const QByteArray stem = name.first(std::min(name.size() - suffix.size(), kLongest - 20));
  return number == 1 ? stem + suffix : stem + ' ' + QByteArray::number(number) + suffix;
}

// Nothing with errno.
std::optional<QByteArray> putInto(const Can& can, const QByteArray& path) {
  constexpr int kMostTries = 10'000;
  const QByteArray from = can.top.isEmpty() ? path : path.sliced(can.top.size() + 1);
  for (int number = 1; number <= kMostTries; ++number) {
    const QByteArray name = nameAtTry(nameOf(path), number);
    const QByteArray info = infoFile(can.folder, name), to = can.folder + "/files/" + name;
    if (writeInfo(info, from)) {
      if (renameOnly(path, to)) return to;
      const int failure = errno;
      ::unlink(info.constData());
      errno = failure;
    }
    if (errno != EEXIST) return std::nullopt;
  }
  return std::nullopt;
}

bool refuse(QString* error, const QString& words) {
  if (error) *error = words;
  return false;
}

}  // namespace

std::optional<QString> DesktopTrash::put(const QString& path, QString* error) {
  const QByteArray file = absolute(fromPath(FileSystem::slashed(path)));
  const std::optional<dev_t> device = file.isEmpty() ? std::nullopt : deviceOf(file);
  if (!device) {
    refuse(error, u"Could not move %1 to the trash. It is not there any more."_s.arg(path));
    return std::nullopt;
  }
  const std::optional<Can> can = canFor(file, *device);
  const std::optional<QByteArray> moved = can ? putInto(*can, file) : std::nullopt;
  if (moved) return toPath(*moved);
  refuse(error,
         can ? fileFailure("move to the trash"_L1, path, errno)
             : u"Could not move %1 to the trash. Its disk has no trash can and none could be "
               "made on it."_s.arg(path));
  return std::nullopt;
}

bool DesktopTrash::takeBack(const QString& inTrash, const QString& path, QString* error) {
  const QByteArray from = fromPath(inTrash), to = fromPath(FileSystem::slashed(path));
  if (!deviceOf(from))
    return refuse(error, u"Could not bring %1 back. It is in the trash no more."_s.arg(path));
  if (!renameOnly(from, to)) {
    if (errno == EEXIST)
      return refuse(error,
                    u"Could not bring %1 back. Another file has that name by now. Rename it "
                    "and try again."_s.arg(path));
    return refuse(error, fileFailure("bring back"_L1, path, errno));
  }
  ::unlink(infoFile(parentOf(parentOf(from)), nameOf(from)).constData());
  return true;
}

}  // namespace korvane
