#include "photos/pooled_pass.h"

#include <thread>

namespace korvane {
namespace {

// A thread that ends finds the next work waiting.
int atOnce() {
  return static_cast<int>(std::thread::hardware_concurrency()) + 1;
}

}  // namespace

void PooledPass::run(Job job) {
  drop();
  job_ = std::move(job);
  round_ = std::make_shared<int>();
  running_ = true;
  begin();
}

void PooledPass::drop() {
  round_.reset();
  arrived_.clear();
  job_ = {};
  begun_ = taken_ = 0;
  running_ = stopped_ = false;
}

void PooledPass::stop() {
  stopped_ = running_;
}

// Works that are done out of their turn count as being at work, so that few of them wait.
void PooledPass::begin() {
  const int most = job_.together ? atOnce() : 1;
  while (!stopped_ && begun_ < job_.count && begun_ - taken_ < most) {
    const int at = begun_++;
    const auto brought = std::make_shared<Taken>();
    pump_.inBackground([brought, work = job_.work(at)] { *brought = work(); },
                       [this, round = std::weak_ptr<int>(round_), at, brought] {
                         if (!round.expired()) arrived(at, std::move(*brought));
                       });
  }
  if (taken_ == begun_) finish();
}

void PooledPass::arrived(int at, Taken taken) {
  const std::weak_ptr<int> round = round_;
  arrived_[at] = std::move(taken);
  while (!arrived_.empty() && arrived_.begin()->first == taken_) {
    const Taken next = std::move(arrived_.begin()->second);
    arrived_.erase(arrived_.begin());
    ++taken_;
    if (next) next();
    if (round.expired()) return;
  }
  begin();
}

void PooledPass::finish() {
  const auto end = std::move(job_.end);
  const bool stopped = stopped_;
  drop();
  if (end) end(stopped);
}

}  // namespace korvane
