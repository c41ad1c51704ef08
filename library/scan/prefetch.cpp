#include "library/scan/prefetch.h"

#include <atomic>
#include <cstring>
#include <thread>

#include "library/scan/file_reader.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

constexpr size_t kQueued = 64, kBatchFiles = 64;
constexpr int kReaders = 6;  // several in flight hide the time of a disk's arm

}  // namespace

struct Prefetch::Shared {
  Shared(ScanPlan planned, ScanMemory remembered)
      : plan(std::move(planned)), memory(std::move(remembered)), reader(plan, memory) {}

  const ScanPlan plan;
  const ScanMemory memory;
  const FileReader reader;
  std::atomic<bool> stop = false;

  std::mutex lock;
  std::condition_variable room, work, ready;
  std::deque<std::shared_ptr<Batch>> queue;  // in the order of the walk
  std::deque<std::shared_ptr<Batch>> unread;
  bool walked = false;

  bool add(Batch batch);
  bool addFolder(Folder folder);
  void walk();
  void read();
};

bool Prefetch::Shared::add(Batch batch) {
  auto shared = std::make_shared<Batch>(std::move(batch));
  std::unique_lock hold(lock);
  room.wait(hold, [this] { return queue.size() < kQueued || stop; });
  if (stop) return false;
  queue.push_back(shared);
  if (shared->ready)
    ready.notify_one();
  else
    unread.push_back(std::move(shared));
  hold.unlock();
  work.notify_one();
  return true;
}

bool Prefetch::Shared::addFolder(Folder folder) {
  std::erase_if(folder.files, [this](const QByteArray& name) {
    return !plan.rules.isSong(QString::fromLatin1(name));
  });
  for (size_t from = 0; from < folder.files.size(); from += kBatchFiles) {
    const size_t to = std::min(from + kBatchFiles, folder.files.size());
    Batch batch{folder.path, {}, {}, to == folder.files.size(), {}, false};
    batch.names.assign(std::make_move_iterator(folder.files.begin() + static_cast<long>(from)),
                       std::make_move_iterator(folder.files.begin() + static_cast<long>(to)));
    if (!add(std::move(batch))) return false;
  }
  return !stop;
}

void Prefetch::Shared::walk() {
  const auto failed = [this](const QByteArray& path, int error) {
    const QString reason = QString::fromLocal8Bit(std::strerror(error));
    add({path, {}, {}, false, u"%1: %2"_s.arg(toPath(path), reason), true});
  };
  FolderWalk walk(
      plan.byFolders ? 2 : 0, 2, [this](Folder f) { return addFolder(std::move(f)); }, failed);
  walk.run(plan.root);
  const std::lock_guard hold(lock);
  walked = true;
  ready.notify_one();
  work.notify_all();
}

void Prefetch::Shared::read() {
  for (;;) {
    std::unique_lock hold(lock);
    work.wait(hold, [this] { return !unread.empty() || walked || stop; });
    if (stop || unread.empty()) return;
    const auto batch = std::move(unread.front());
    unread.pop_front();
    hold.unlock();
    reader.read(*batch, stop);
    hold.lock();
    batch->ready = true;
    if (!queue.empty() && queue.front() == batch) ready.notify_one();
  }
}

Prefetch::Prefetch(ScanPlan plan, ScanMemory memory)
    : shared_(std::make_shared<Shared>(std::move(plan), std::move(memory))) {
  std::thread([shared = shared_] { shared->walk(); }).detach();
  for (int i = 0; i < kReaders; ++i) std::thread([shared = shared_] { shared->read(); }).detach();
}

Prefetch::~Prefetch() {
  const std::lock_guard hold(shared_->lock);
  shared_->stop = true;
  shared_->room.notify_all();
  shared_->work.notify_all();
}

Prefetch::Answer Prefetch::next(Batch& batch, int milliseconds) {
  std::unique_lock hold(shared_->lock);
  auto& queue = shared_->queue;
  const auto settled = [&] { return queue.empty() ? shared_->walked : queue.front()->ready; };
  if (!shared_->ready.wait_for(hold, std::chrono::milliseconds(milliseconds), settled))
    return NotYet;
  if (queue.empty()) return End;
  batch = std::move(*queue.front());
  queue.pop_front();
  shared_->room.notify_one();
  return Ready;
}

const ScanMemory& Prefetch::memory() const {
  return shared_->memory;
}

}  // namespace korvane
