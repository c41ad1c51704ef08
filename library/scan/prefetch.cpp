#include "library/scan/prefetch.h"

#include <atomic>
#include <cstring>
#include <thread>

#include "library/scan/file_reader.h"
#include "platform/path_text.h"

namespace korvane {
namespace {

// A job is worth more than the waking of a thread, which costs as much as several files.
constexpr size_t kJobFiles = 64, kQueued = 32, kRefill = kQueued / 2;
constexpr int kReaders = 6;  // several in flight hide the time of a disk's arm

}  // namespace

// Directories in a row, read together by one thread.
struct Job {
  std::vector<Batch> batches;
  bool ready = false;
};

struct Prefetch::Shared {
  Shared(ScanPlan planned, ScanMemory remembered)
      : plan(std::move(planned)), memory(std::move(remembered)), reader(plan, memory) {}

  const ScanPlan plan;
  const ScanMemory memory;
  const FileReader reader;
  std::atomic<bool> stop = false;

  std::mutex lock;
  std::condition_variable room, work, ready;
  std::deque<std::shared_ptr<Job>> queue;  // in the order of the walk
  std::deque<std::shared_ptr<Job>> unread;
  bool walked = false;

  // Of the walking thread alone: what the next job will be.
  std::vector<Batch> gathered;
  size_t gatheredFiles = 0;

  bool add(Batch batch);
  bool addJob();
  bool addFolder(Folder folder);
  void walk();
  void read();
};

bool Prefetch::Shared::add(Batch batch) {
  gatheredFiles += batch.names.size();
  gathered.push_back(std::move(batch));
  return gatheredFiles < kJobFiles || addJob();
}

bool Prefetch::Shared::addJob() {
  gatheredFiles = 0;
  auto job = std::make_shared<Job>(Job{std::exchange(gathered, {})});
  std::unique_lock hold(lock);
  if (queue.size() >= kQueued) room.wait(hold, [this] { return queue.size() <= kRefill || stop; });
  queue.push_back(job);
  unread.push_back(std::move(job));
  hold.unlock();
  work.notify_one();
  return !stop;
}

bool Prefetch::Shared::addFolder(Folder folder) {
  std::erase_if(folder.files, [this](const QByteArray& name) {
    return !plan.rules.isSong(QString::fromLatin1(name));
  });
  for (size_t from = 0; from < folder.files.size(); from += kJobFiles) {
    const size_t to = std::min(from + kJobFiles, folder.files.size());
    Batch batch{folder.path, {}, {}, to == folder.files.size(), {}};
    batch.names.assign(std::make_move_iterator(folder.files.begin() + static_cast<long>(from)),
                       std::make_move_iterator(folder.files.begin() + static_cast<long>(to)));
    if (!add(std::move(batch))) return false;
  }
  return !stop;
}

void Prefetch::Shared::walk() {
  const auto failed = [this](const QByteArray& path, int error) {
    const QString reason = QString::fromLocal8Bit(std::strerror(error));
    add({path, {}, {}, false, u"%1: %2"_s.arg(toPath(path), reason)});
  };
  FolderWalk walk(
      plan.byFolders ? 2 : 0, 2, [this](Folder f) { return addFolder(std::move(f)); }, failed);
  walk.run(plan.root);
  if (!gathered.empty()) addJob();
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
    const auto job = std::move(unread.front());
    unread.pop_front();
    hold.unlock();
    for (Batch& batch : job->batches) reader.read(batch, stop);
    hold.lock();
    job->ready = true;
    if (!queue.empty() && queue.front() == job) ready.notify_one();
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

Prefetch::Answer Prefetch::next(std::vector<Batch>& batches, int milliseconds) {
  std::unique_lock hold(shared_->lock);
  auto& queue = shared_->queue;
  const auto settled = [&] { return queue.empty() ? shared_->walked : queue.front()->ready; };
  if (!shared_->ready.wait_for(hold, std::chrono::milliseconds(milliseconds), settled))
    return NotYet;
  if (queue.empty()) return End;
  batches = std::move(queue.front()->batches);
  queue.pop_front();
  if (queue.size() == kRefill) shared_->room.notify_one();
  return Ready;
}

const ScanMemory& Prefetch::memory() const {
  return shared_->memory;
}

}  // namespace korvane
