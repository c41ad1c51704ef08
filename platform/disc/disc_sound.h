// The sound of a stretch of a disc, read some seconds ahead on a thread of its own.
//
// A sector that cannot be read sounds as silence; three seconds of them in a row are the end. The
// thread lets go of everything when it is cancelled, or when a drive that hangs answers at last.
#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>

#include "platform/disc/disc_reader.h"
#include "platform/sound_stream.h"

namespace korvane {

class DiscSound final : public SoundStream, public std::enable_shared_from_this<DiscSound> {
 public:
  // Sectors `first` to `end` (exclusive) of what `source` names. Begins to read at once.
  static std::shared_ptr<DiscSound> make(std::shared_ptr<DiscReader> reader, const QString& source,
                                         int first, int end);

  qint64 size() const override;
  qsizetype read(std::span<char> to) override;
  void cancel() override;

  // From any thread.
  int first() const { return first_; }
  bool begun() const { return begun_; }    // sound was read by the player
  bool broken() const { return broken_; }  // the disc could not be read to the end

 private:
  DiscSound(int first, int end) : first_(first), end_(end) {}
  void run(DiscReader& reader, const QString& source);
  bool readChunk(SectorReader& disc, int from, int count, char* to);
  bool put(QByteArray chunk);  // waits for room; false when cancelled

  const int first_, end_;
  int unreadable_ = 0;  // sectors in a row
  std::atomic<bool> begun_{false}, broken_{false};
  std::mutex mutex_;  // of the rest
  std::condition_variable wake_;
  std::deque<QByteArray> chunks_;
  qsizetype taken_ = 0;  // bytes of the front chunk
  bool over_ = false, cancelled_ = false;
};

}  // namespace korvane
