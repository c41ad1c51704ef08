#include "platform/imaging/opened_picture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QBuffer>
#include <cerrno>
#include <cstring>

#include "platform/file_system.h"
#include "platform/imaging.h"
#include "platform/imaging/animated_cursor.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr qint64 kStart = 64 << 10, kLongStart = 4 << 20;

// The descriptor of a regular file; -1 with errno.
int openRegular(const QByteArray& path) {
  if (path.isEmpty() || path.contains('\0')) {
    errno = ENOENT;
    return -1;
  }
  // A pipe that nobody writes must not hold the thread.
  const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  struct stat status;
  if (file < 0 || (::fstat(file, &status) == 0 && S_ISREG(status.st_mode))) return file;
  ::close(file);
  errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
  return -1;
}

QString wordsOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return u"It is not there any more."_s;
    case EACCES:
    case EPERM:
      return u"Permission to read it is refused."_s;
    case EISDIR:
    case EINVAL:
      return u"It is no file of its own."_s;
    case EIO:
      return u"The disk reports a fault. Check the disk and its cable."_s;
    default:
      return QString::fromLocal8Bit(std::strerror(error)) + u'.';
  }
}

bool isTiff(QByteArrayView start) {
  return start.startsWith(QByteArrayView("II*\0", 4)) ||
         start.startsWith(QByteArrayView("MM\0*", 4));
}

}  // namespace

OpenedPicture::OpenedPicture(const QString& path) : path_(fromPath(FileSystem::slashed(path))) {
  const int descriptor = openRegular(path_);
  if (descriptor < 0) {
    fault_ = wordsOf(errno);
    return;
  }
  file_.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
  start_ = read(kStart);
  if (start_.isEmpty()) {
    if (fault_.isEmpty()) fault_ = u"It is empty."_s;
    return;
  }
  kind_ = pictureKindOf(start_);
  if (kind_ == PictureKind::Jpeg) readJpegHead();
  if (isTiff(start_)) exif_ = readExif(whole());
}

void OpenedPicture::readJpegHead() {
  jpeg_ = jpegHead(start_);
  if (jpeg_.cut && start_.size() == kStart) {
    start_ = read(kLongStart);
    jpeg_ = jpegHead(start_);
  }
  exif_ = readExif(QByteArrayView(start_).sliced(jpeg_.exifAt, jpeg_.exifSize));
}

QByteArray OpenedPicture::read(qint64 limit) {
  const qint64 count = std::min(limit, file_.size());
  QByteArray bytes(count, Qt::Uninitialized);
  qint64 have = 0, got = 0;
  if (file_.seek(0))
    while (have < count && (got = file_.read(bytes.data() + have, count - have)) > 0) have += got;
  bytes.truncate(have);
  if (got < 0) fault_ = u"It could not be read: %1."_s.arg(file_.errorString());
  return got < 0 ? QByteArray() : bytes;
}

QByteArray OpenedPicture::whole() {
  if (file_.size() <= Imaging::kMostBytes) return read(Imaging::kMostBytes);
  fault_ =
      u"The file is longer than %1 MiB, more than is read here."_s.arg(Imaging::kMostBytes >> 20);
  return {};
}

QIODevice& OpenedPicture::device() {
  const bool cursor = kind_ == PictureKind::AnimatedCursor;
  // The reader of TIFF would map a file.
  if (!copy_ && (cursor || isTiff(start_))) {
    const QByteArray bytes = whole();
    auto copy = std::make_unique<QBuffer>();
    copy->setData(cursor ? firstCursorFrame(bytes).toByteArray() : bytes);
    copy->open(QIODevice::ReadOnly);
    copy_ = std::move(copy);
  }
  QIODevice& device = copy_ ? *copy_ : static_cast<QIODevice&>(file_);
  device.seek(0);
  return device;
}

}  // namespace korvane
