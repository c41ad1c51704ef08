// Looks at a drive once a second on a thread of its own, so that nobody waits for it. Called from
// the event loop's thread.
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
  // differs. The pump is not owned and must live until quit().
  DiscWatch(std::shared_ptr<DiscReader> reader, Pump& pump, Heard heard)
      : reader_(std::move(reader)), pump_(&pump), heard_(std::move(heard)) {}

  // Looks at `source` from now on, at once and then every second; `heard` gets the number `watch`,
  // by which a late look of an earlier source is known.
  void begin(int watch, const QString& source);
  void end();    // looks no more; one that is at work may still be heard
  void eject();  // of the source last begun, before the next look
  void quit();   // `heard` is not called again; takes 1 s at most, even when the drive hangs

 private:
  void start();
  void run();
  void report(int watch, const DiscLook& look);

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
