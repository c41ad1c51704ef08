// Looks at a drive again and again on a thread of its own, so that nobody waits for it.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include "platform/disc/disc_reader.h"
#include "platform/pump.h"

namespace korvane {

class DiscWatch : public std::enable_shared_from_this<DiscWatch> {
 public:
  using Heard = std::function<void(int watch, const DiscLook&)>;
  // `heard` is called from the event loop with the first look of a watch and with every one that
  // differs. The pump is not owned.
  DiscWatch(std::shared_ptr<DiscReader> reader, Pump& pump, Heard heard)
      : reader_(std::move(reader)), pump_(&pump), heard_(std::move(heard)) {}

  void begin(int watch, const QString& source);  // from now on this one
  void end();
  void eject();
  void quit();  // hears nothing any more; at most 1 s, even when the drive hangs

 private:
  void start();
  void run();
  void tell(int watch, const DiscLook& look);

  const std::shared_ptr<DiscReader> reader_;
  std::mutex mutex_;  // of the rest
  std::condition_variable wake_;
  std::thread thread_;
  Pump* pump_;   // null once nobody hears
  Heard heard_;  // called from the event loop only
  QString source_;
  int watch_ = 0;
  bool watching_ = false, ejecting_ = false, turn_ = false, quitting_ = false, over_ = false;
};

}  // namespace korvane
