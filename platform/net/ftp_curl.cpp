#include "platform/net/ftp_curl.h"

#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/net/ftp_session.h"

namespace korvane {

struct FtpCurl::Shared {
  std::mutex mutex;
  std::condition_variable news;  // an order has come or has ended, or the owner goes
  std::optional<Order> order;    // that the thread has yet to take
  std::optional<Result> result;  // of the last one
  bool left = false;             // the owner has gone
  std::atomic<bool> cancelled = false;
  std::atomic<qint64> moved = 0;
  FtpSession session{cancelled, moved};
};

FtpCurl::FtpCurl() : shared_(std::make_shared<Shared>()) {
  std::thread([shared = shared_] { work(shared); }).detach();
}

FtpCurl::~FtpCurl() {
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->left = true;
    shared_->cancelled = true;
  }
  shared_->news.notify_all();
  shared_->session.wake();
}

void FtpCurl::work(const std::shared_ptr<Shared>& shared) {
  for (;;) {
    std::unique_lock lock(shared->mutex);
    shared->news.wait(lock, [&] { return shared->order || shared->left; });
    if (shared->left) return;
    const Order order = *std::exchange(shared->order, std::nullopt);
    lock.unlock();
    Result result = shared->session.perform(order);
    lock.lock();
    shared->result = std::move(result);
    lock.unlock();
    shared->news.notify_all();
  }
}

void FtpCurl::begin(Order order) {
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->result.reset();
    shared_->cancelled = false;
    shared_->moved = 0;
    shared_->order = std::move(order);
  }
  shared_->news.notify_all();
}

bool FtpCurl::wait(int milliseconds) {
  std::unique_lock lock(shared_->mutex);
  return shared_->news.wait_for(lock, std::chrono::milliseconds(milliseconds),
                                [this] { return shared_->result.has_value(); });
}

qint64 FtpCurl::moved() const {
  return shared_->moved;
}

FtpClient::Result FtpCurl::result() {
  const std::lock_guard lock(shared_->mutex);
  return shared_->result ? std::move(*shared_->result) : Result{};
}

void FtpCurl::cancel() {
  shared_->cancelled = true;
  shared_->session.wake();
}

}  // namespace korvane
