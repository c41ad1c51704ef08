// The rows of an import on their way from the thread that reads them to the one that writes them:
// some hundred at a time, and only so many as fit in a little memory.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "platform/text.h"

namespace korvane {

struct DiscRow {
  QByteArrayList discIds;
  QByteArrayList columns;  // as discColumns() gives them
};

class RecordQueue {
 public:
  using Rows = std::vector<std::optional<DiscRow>>;  // nothing for a record that is none

  // `fill` puts all there are, on a thread of its own, which is over when this is destroyed. It
  // throws nothing.
  explicit RecordQueue(std::function<void(RecordQueue&)> fill);
  ~RecordQueue();
  RecordQueue(const RecordQueue&) = delete;

  // Waits for room. False when no more are wanted.
  bool put(std::optional<DiscRow> row);
  // Waits for some. Empty behind the last; fill() has ended then. `spent` goes back to the thread
  // that made it: memory that one thread takes and another gives back makes both wait.
  Rows take(Rows spent);

 private:
  bool pass();  // hands over what was put together

  Rows gathered_;     // by the filling thread alone
  std::mutex mutex_;  // of the rest
  std::condition_variable wake_;
  std::deque<Rows> ready_, spent_;
  bool filled_ = false, unwanted_ = false;
  std::thread thread_;
};

}  // namespace korvane
