#include "platform/disc/disc_watch.h"

namespace korvane {
namespace {

constexpr auto kBetweenLooks = std::chrono::milliseconds(1000);
constexpr auto kLongestGoodbye = std::chrono::seconds(1);

}  // namespace

void DiscWatch::begin(int watch, const QString& source) {
  const std::lock_guard lock(mutex_);
  watch_ = watch;
  source_ = source;
  watching_ = turn_ = true;
  start();
}

void DiscWatch::end() {
  const std::lock_guard lock(mutex_);
  watching_ = false;
}

void DiscWatch::eject() {
  const std::lock_guard lock(mutex_);
  ejecting_ = turn_ = true;
  start();
}

void DiscWatch::start() {
  if (!thread_.joinable()) thread_ = std::thread([self = shared_from_this()] { self->run(); });
  wake_.notify_all();
}

void DiscWatch::quit() {
  std::unique_lock lock(mutex_);
  pump_ = nullptr;
  quitting_ = true;
  wake_.notify_all();
  if (!thread_.joinable()) return;
  const bool ended = wake_.wait_for(lock, kLongestGoodbye, [this] { return over_; });
  lock.unlock();
  ended ? thread_.join() : thread_.detach();
}

void DiscWatch::run() {
  DiscLook known;
  int knownWatch = 0;
  std::unique_lock lock(mutex_);
  while (!quitting_) {
    turn_ = false;
    const QString source = source_;
    const int watch = watch_;
    const bool looking = watching_, ejecting = std::exchange(ejecting_, false);
    lock.unlock();
    if (ejecting) reader_->eject(source);
    if (looking) {
      if (watch != knownWatch) known = {};
      DiscLook look = reader_->look(source, known);
      if (watch != knownWatch || look != known) report(watch, look);
      known = std::move(look);
      knownWatch = watch;
    }
    lock.lock();
    const auto due = [this] { return turn_ || quitting_; };
    watching_ ? void(wake_.wait_for(lock, kBetweenLooks, due)) : wake_.wait(lock, due);
  }
  over_ = true;
  wake_.notify_all();
}

void DiscWatch::report(int watch, const DiscLook& look) {
  const std::lock_guard lock(mutex_);
  if (!pump_) return;
  pump_->later([weak = weak_from_this(), watch, look] {
    const std::shared_ptr<DiscWatch> self = weak.lock();
    if (self && self->pump_) self->heard_(watch, look);
  });
}

}  // namespace korvane
