#include "library/index/library_index.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstddef>

#include "library/index/index_builder.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

QString indexPath(const QString& databasePath) {
  return databasePath.left(databasePath.lastIndexOf(u'.')) + u".idx"_s;
}

// Replaces the stamp of the file if it is still `before`.
bool writeStamp(const QString& path, const DatabaseStamp& before, const DatabaseStamp& after) {
  const int file = ::open(fromPath(path).constData(), O_RDWR | O_CLOEXEC);
  if (file < 0) return false;
  constexpr auto kPlace = offsetof(IndexHeader, stamp);
  DatabaseStamp stored;
  bool good = ::pread(file, &stored, sizeof stored, kPlace) == sizeof stored && stored == before;
  good = good && ::pwrite(file, &after, sizeof after, kPlace) == sizeof after;
  return ::close(file) == 0 && good;
}

}  // namespace

LibraryIndex::LibraryIndex(const QString& databasePath)
    : databasePath_(databasePath),
      path_(indexPath(databasePath)),
      work_(std::make_shared<Work>()) {}

LibraryIndex::~LibraryIndex() {
  giveWay();
}

std::shared_ptr<const IndexImage> LibraryIndex::valid(sql::Connection& connection) {
  const auto now = DatabaseStamp::of(connection.header());
  if (!now) return {};
  if (image_ && image_->header().stamp == *now) return image_;
  if (auto mapped = IndexImage::map(path_); mapped && mapped->header().stamp == *now)
    return image_ = mapped;
  return {};
}

void LibraryIndex::build(Work& work, const QString& databasePath, const QString& path) {
  sql::Connection connection(databasePath, sql::Connection::ReadOnly);
  work.bytes = buildIndex(connection, work.cancel);
  work.written = !work.bytes.isEmpty() && writeIndex(path, work.bytes);
}

void LibraryIndex::install(Work& work) {
  if (work.bytes.isEmpty()) return;
  image_ = work.written ? IndexImage::map(path_) : IndexImage::hold(std::move(work.bytes));
  work.bytes.clear();
}

std::shared_ptr<const IndexImage> LibraryIndex::rebuild() {
  Work now;
  build(now, databasePath_, path_);
  install(now);
  return image_;
}

std::shared_ptr<const IndexImage> LibraryIndex::passing(sql::Connection& connection) {
  return IndexImage::hold(buildIndex(connection, false));
}

void LibraryIndex::refresh(sql::Connection& connection, Pump& pump, std::function<void()> done) {
  if (valid(connection)) return pump.later(std::move(done));
  if (!work_->running) startBuild(pump, std::move(done));
}

void LibraryIndex::startBuild(Pump& pump, std::function<void()> done) {
  work_->running = true;
  work_->cancel = false;
  const auto work = work_;
  const auto run = [work, database = databasePath_, path = path_] {
    try {
      build(*work, database, path);
    } catch (const DatabaseError&) {  // without a list file the statements serve
      work->bytes.clear();
    }
  };
  const auto finish = [this, weak = std::weak_ptr(work_), &pump, done = std::move(done)] {
    const auto alive = weak.lock();
    if (!alive || alive != work_) return;
    alive->running = false;
    if (alive->cancel) return startBuild(pump, done);
    install(*alive);
    done();
  };
  pump.inBackground(run, finish);
}

void LibraryIndex::restamp(const std::optional<DatabaseStamp>& before,
                           sql::Connection& connection) {
  if (!image_ || !before || image_->header().stamp != *before) return;
  auto after = DatabaseStamp::of(connection.header());
  // Another program's write in between would have moved the counter further.
  if (!after || after->changes != before->changes + 1 || after->library != before->library) return;
  if (writeStamp(path_, *before, *after)) return;
  image_.reset();
}

}  // namespace korvane
