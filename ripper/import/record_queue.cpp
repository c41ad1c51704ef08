#include "ripper/import/record_queue.h"

namespace korvane {
namespace {

constexpr size_t kTogether = 256, kMostReady = 16;

}  // namespace

RecordQueue::RecordQueue(std::function<void(RecordQueue&)> fill)
    : thread_([this, fill = std::move(fill)] {
        fill(*this);
        pass();
        const std::lock_guard lock(mutex_);
        filled_ = true;
        wake_.notify_all();
      }) {}

RecordQueue::~RecordQueue() {
  {
    const std::lock_guard lock(mutex_);
    unwanted_ = true;
    wake_.notify_all();
  }
  thread_.join();
}

bool RecordQueue::put(std::optional<DiscRow> row) {
  gathered_.push_back(std::move(row));
  return gathered_.size() < kTogether || pass();
}

bool RecordQueue::pass() {
  std::deque<Rows> spent;
  std::unique_lock lock(mutex_);
  wake_.wait(lock, [&] { return unwanted_ || ready_.size() < kMostReady; });
  spent.swap(spent_);
  if (!gathered_.empty()) ready_.push_back(std::exchange(gathered_, {}));
  wake_.notify_all();
  const bool wanted = !unwanted_;
  lock.unlock();
  return wanted;
}

RecordQueue::Rows RecordQueue::take(Rows spent) {
  std::unique_lock lock(mutex_);
  spent_.push_back(std::move(spent));
  wake_.wait(lock, [&] { return filled_ || !ready_.empty(); });
  if (ready_.empty()) return {};
  Rows rows = std::move(ready_.front());
  ready_.pop_front();
  wake_.notify_all();
  return rows;
}

}  // namespace korvane
