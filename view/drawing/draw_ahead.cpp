#include "view/drawing/draw_ahead.h"

#include <algorithm>

namespace korvane {
namespace {

constexpr int kMostUnasked = 256;
constexpr int kMostNow = 64;  // more than any screen shows

}  // namespace

DrawAhead::~DrawAhead() {
  thread_.request_stop();
}

void DrawAhead::queue(Job job) {
  const bool first = job.now || job.key.fit != Fit::Inside;
  queue_.insert(first ? queue_.begin() : queue_.end(), std::move(job));
  if (!thread_.joinable())
    thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
  changed_.notify_all();
}

void DrawAhead::ask(const PictureKey& key, const PictureSource& source) {
  const std::lock_guard lock(mutex_);
  const auto same = [&key](const Job& job) { return job.key == key; };
  if (drawing_ && same(*drawing_)) return;
  if (drawn_.contains(key) || std::ranges::any_of(queue_, same)) return;
  if (drawn_.size() >= kMostUnasked) drawn_.clear();  // the window has changed its size
  queue({key, source});
}

void DrawAhead::askNow(const PictureKey& key, const PictureSource& source) {
  const std::lock_guard lock(mutex_);
  const auto same = [&key](const Job& job) { return job.key == key; };
  if (drawing_ && same(*drawing_)) {
    drawing_->now = true;
    return;
  }
  if (now_.contains(key)) return;
  std::erase_if(queue_, same);
  const auto waits = [](const Job& job) { return job.now; };
  if (std::ranges::count_if(queue_, waits) >= kMostNow)
    queue_.erase(std::next(std::find_if(queue_.rbegin(), queue_.rend(), waits)).base());
  queue({key, source, true});
}

QHash<PictureKey, DrawAhead::Drawn> DrawAhead::takeNow() {
  const std::lock_guard lock(mutex_);
  return std::exchange(now_, {});
}

std::optional<QImage> DrawAhead::take(const PictureKey& key) {
  std::unique_lock lock(mutex_);
  std::erase_if(queue_, [&key](const Job& job) { return job.key == key; });
  changed_.wait(lock, [&] { return !drawing_ || drawing_->key != key; });
  const auto found = drawn_.constFind(key);
  if (found == drawn_.constEnd()) return std::nullopt;
  QImage image = found->image;
  drawn_.erase(found);
  return image;
}

void DrawAhead::work(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  while (changed_.wait(lock, stop, [this] { return !queue_.empty(); })) {
    const Job job = queue_.front();
    queue_.pop_front();
    drawing_ = job;
    lock.unlock();
    QImage image = drawPicture(job.source, {job.key.width, job.key.height}, job.key.fit);
    lock.lock();
    const bool now = drawing_->now;
    (now ? now_ : drawn_).insert(job.key, {job.source, std::move(image)});
    drawing_.reset();
    changed_.notify_all();
    if (!now) continue;
    lock.unlock();
    drawnNow_();
    lock.lock();
  }
}

}  // namespace korvane
