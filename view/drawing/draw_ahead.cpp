#include "view/drawing/draw_ahead.h"

#include <algorithm>

namespace korvane {
namespace {

constexpr int kMostUnasked = 256;

}  // namespace

DrawAhead::~DrawAhead() {
  thread_.request_stop();
}

void DrawAhead::ask(const PictureKey& key, const PictureSource& source) {
  const std::lock_guard lock(mutex_);
  const auto same = [&key](const Job& job) { return job.key == key; };
  if (drawing_ == key || drawn_.contains(key) || std::ranges::any_of(queue_, same)) return;
  if (drawn_.size() >= kMostUnasked) drawn_.clear();  // the window has changed its size
  queue_.insert(key.fit == Fit::Inside ? queue_.end() : queue_.begin(), {key, source});
  if (!thread_.joinable())
    thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
  changed_.notify_all();
}

std::optional<QImage> DrawAhead::take(const PictureKey& key) {
  std::unique_lock lock(mutex_);
  std::erase_if(queue_, [&key](const Job& job) { return job.key == key; });
  changed_.wait(lock, [&] { return drawing_ != key; });
  const auto found = drawn_.constFind(key);
  if (found == drawn_.constEnd()) return std::nullopt;
  QImage image = found->image;
  drawn_.erase(found);
  return image;
}

void DrawAhead::work(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  while (changed_.wait(lock, stop, [this] { return !queue_.empty(); })) {
    const Job job = std::move(queue_.front());
    queue_.pop_front();
    drawing_ = job.key;
    lock.unlock();
    QImage image = drawPicture(job.source, {job.key.width, job.key.height}, job.key.fit);
    lock.lock();
    drawn_.insert(job.key, {job.source.owner, std::move(image)});
    drawing_.reset();
    changed_.notify_all();
  }
}

}  // namespace korvane
