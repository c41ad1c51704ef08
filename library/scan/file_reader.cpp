#include "library/scan/file_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "library/scan/stamp.h"
#include "library/tags/full_tags.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  int get() const { return number_; }

 private:
  int number_;
};

quint64 stampOfFile(const QByteArray& name, const struct stat& status, quint64 seed) {
  const auto nanoseconds = static_cast<quint64>(status.st_mtim.tv_nsec);
  const auto seconds = static_cast<quint64>(status.st_mtim.tv_sec);
  return stampOf(name, mixed(static_cast<quint64>(status.st_size) ^
                             mixed(seconds * 1000003U ^ nanoseconds ^ seed)));
}

QString failureOf(const QByteArray& directory, const QByteArray& name, int error) {
  return u"%1: %2"_s.arg(toPath(directory + '/' + name),
                         QString::fromLocal8Bit(std::strerror(error)));
}

}  // namespace

FileReader::FileReader(const ScanPlan& plan, const ScanMemory& memory)
    : plan_(plan),
      memory_(memory),
      page_(plan.rules.codePage),
      seed_(mixed(plan.rules.stamp() ^ stampOf(plan.listenerDrive.toUtf8(), plan.byFolders))) {
  if (plan.rules.fullTags) setFullTagsPage(page_);
}

void FileReader::read(Batch& batch, const std::atomic<bool>& stop) const {
  if (batch.names.empty()) return;
  const Descriptor directory(::open(batch.directory.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  const Stamps* known = memory_.find(batch.directory);
  batch.files.reserve(batch.names.size());
  for (const QByteArray& name : batch.names) {
    if (stop) return;
    ScannedFile file;
    QByteArray tail;
    int error = 0;
    switch (look(directory.get(), name, known, file, tail, error)) {
      case Gone:
        continue;
      case Known:
        file.known = true;
        break;
      case Read:
        file.song = rowOf(batch, name, tail);
        break;
      case Failed:
        file.failure = failureOf(batch.directory, name, error);
        break;
    }
    batch.files.push_back(std::move(file));
  }
}

FileReader::Result FileReader::look(int directory, const QByteArray& name, const Stamps* known,
                                    ScannedFile& file, QByteArray& tail, int& error) const {
  const auto failed = [&error] {
    error = errno;
    return error == ENOENT ? Gone : Failed;
  };
  struct stat status {};
  const bool looked = known || plan_.byFolders;
  if (looked) {
    if (::fstatat(directory, name.constData(), &status, 0) != 0) return failed();
    file.stamp = stampOfFile(name, status, seed_);
    if (known && std::binary_search(known->begin(), known->end(), file.stamp)) return Known;
    if (plan_.byFolders) return Read;
  }
  // O_NONBLOCK: a pipe that has taken the file's place must not hold the scan.
  const Descriptor opened(::openat(directory, name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (opened.get() < 0 || ::fstat(opened.get(), &status) != 0) return failed();
  if (!S_ISREG(status.st_mode)) return Gone;
  file.stamp = stampOfFile(name, status, seed_);
  if (status.st_size < kId3v1Size) return Read;
  tail.resize(kId3v1Size);
  const auto got = ::pread(opened.get(), tail.data(), static_cast<size_t>(kId3v1Size),
                           status.st_size - kId3v1Size);
  if (got < 0) return failed();
  tail.truncate(got);
  return Read;
}

Song FileReader::rowOf(const Batch& batch, const QByteArray& name, const QByteArray& tail) const {
  const QByteArray disk =
      batch.directory.endsWith('/') ? batch.directory + name : batch.directory + '/' + name;
  QString path = toPath(disk);
  if (plan_.byFolders) {
    const QList<QByteArray> parts = batch.directory.split('/');
    if (!plan_.listenerDrive.isEmpty()) path = plan_.listenerDrive + path.mid(1);
    return songByFolders(nameShown(parts.value(parts.size() - 2)), nameShown(parts.last()),
                         nameShown(name), path, plan_.rules);
  }
  auto tags = tagsOfID3v1(tail, page_);
  if (!tags && plan_.rules.fullTags) tags = readFullTags(path);
  return songByTags(tags, nameShown(name), path, plan_.rules);
}

}  // namespace korvane
