#include "ftp/local_files.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include "platform/files/new_file.h"

namespace korvane {
namespace {

constexpr char kPart[] = ".part";
constexpr int kHashLength = 12;

// "song.mp3.0123456789ab.part": what it is part of stands in its name.
QString partialName(const QString& path, const QByteArray& identity) {
  const QByteArray hash =
      QCryptographicHash::hash(identity, QCryptographicHash::Sha256).toHex().left(kHashLength);
  return path + u'.' + QString::fromLatin1(hash) + QString::fromLatin1(kPart);
}

// Partial files of the same target, of what the server has no more.
void removeOthers(FileCalls& calls, const QString& path, const QByteArray& kept) {
  const QFileInfo info(path);
  const QString begin = info.fileName() + u'.', end = QString::fromLatin1(kPart);
  for (const QString& name : info.dir().entryList(QDir::Files | QDir::Hidden)) {
    if (name.size() != begin.size() + kHashLength + end.size() || !name.startsWith(begin) ||
        !name.endsWith(end))
      continue;
    const QByteArray other = QFile::encodeName(info.dir().filePath(name));
    if (other != kept) calls.unlink(other.constData());
  }
}

}  // namespace

LocalTarget::LocalTarget(FileCalls& calls, const QString& path, Kind kind,
                         const QByteArray& identity)
    : calls_(calls),
      path_(path),
      kind_(kind),
      target_(QFile::encodeName(path)),
      written_(kind == Partial ? QFile::encodeName(partialName(path, identity)) : target_) {}

LocalTarget::~LocalTarget() {
  if (file_ >= 0) calls_.close(file_);
}

bool LocalTarget::check(bool succeeded) {
  if (!succeeded && !failure_) failure_ = errno ? errno : EIO;
  return succeeded && !failure_;
}

bool LocalTarget::open(qint64 wanted) {
  wanted_ = wanted;
  if (kind_ == Partial) removeOthers(calls_, path_, written_);
  int flags = O_WRONLY | O_CREAT | O_CLOEXEC;
  if (kind_ == Emptied) flags |= O_TRUNC;
  if (kind_ == Partial) flags |= O_APPEND | O_NOFOLLOW;
  file_ = calls_.open(written_.constData(), flags, 0666);
  if (!check(file_ >= 0)) return false;
  if (kind_ != Partial) return true;
  struct stat status {};
  if (!check(calls_.fstat(file_, &status) == 0)) return false;
  had_ = status.st_size;
  if (had_ <= wanted) return true;
  had_ = 0;
  return check(::ftruncate(file_, 0) == 0);
}

bool LocalTarget::put(QByteArrayView bytes) {
  if (kind_ == InPlace) {
    bytes = bytes.first(std::min<qsizetype>(bytes.size(), wanted_));
    wanted_ -= bytes.size();
  }
  return check(writeAll(calls_, file_, bytes));
}

bool LocalTarget::finish(bool safely) {
  if (safely && !check(calls_.fsync(file_) == 0)) return false;
  if (!check(calls_.close(std::exchange(file_, -1)) == 0)) return false;
  if (kind_ != Partial) return true;
  if (!check(calls_.rename(written_.constData(), target_.constData()) == 0)) return false;
  if (!safely) return true;
  const QByteArray folder = QFile::encodeName(QFileInfo(path_).path());
  const int directory = calls_.open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (directory < 0) return true;
  calls_.fsync(directory);
  calls_.close(directory);
  return true;
}

void LocalTarget::discard() {
  if (file_ >= 0) calls_.close(std::exchange(file_, -1));
  if (kind_ == Partial) calls_.unlink(written_.constData());
}

QString LocalTarget::trouble() const {
  return failure_ ? fileFailure("save"_L1, path_, failure_) : QString();
}

LocalSource::LocalSource(const QString& path) : path_(path) {}

LocalSource::~LocalSource() {
  if (file_ >= 0) ::close(file_);
}

bool LocalSource::open(qint64 from) {
  if (file_ < 0)
    file_ = ::open(QFile::encodeName(path_).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  struct stat status {};
  if (file_ < 0 || ::fstat(file_, &status) != 0) {
    failure_ = errno;
    return false;
  }
  if (!S_ISREG(status.st_mode)) {
    failure_ = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return false;
  }
  size_ = status.st_size;
  modified_ = status.st_mtime;
  if (::lseek(file_, from, SEEK_SET) == from) return true;
  failure_ = errno;
  return false;
}

qint64 LocalSource::take(char* bytes, qint64 most) {
  for (;;) {
    const ssize_t got = ::read(file_, bytes, static_cast<size_t>(most));
    if (got >= 0) return got;
    if (errno == EINTR) continue;
    failure_ = errno;
    return -1;
  }
}

QString LocalSource::trouble() const {
  return failure_ ? fileFailure("read"_L1, path_, failure_) : QString();
}

}  // namespace korvane
