// One run of the ripper: reads the queued tracks and encodes them, each on threads of its own.
//
// One thread reads. It fills the tracks' queues in the order of the jobs, and goes on with the next
// job where one is full, as long as there are encoders for it; the sound that waits is bounded.
// Each encoder takes the next job and writes its file. A drive that hangs stops the reader alone:
// nobody waits for it, and it lets go of everything when the drive answers.
#pragma once

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

#include "platform/disc/disc_reader.h"
#include "platform/files/new_file.h"
#include "platform/pump.h"
#include "platform/ripping/track_reader.h"

namespace korvane {

struct ExtractionPlan {
  struct Track {
    RipJob job;
    Disc disc;  // that was in the drive when the job was queued
  };
  std::vector<Track> tracks;  // at least one; each is a track of sound of its disc
  SwdMP3Encoder encoder;
  bool secure = false;
  int encoders = 1;  // at once; with 1 the next track is read when one is done
  Patience::Time::duration limit = std::chrono::seconds(30);  // at one place of a disc
};

class DiscExtraction : public std::enable_shared_from_this<DiscExtraction> {
 public:
  // The pump, the calls and the one who hears are not owned and must outlive the run's end.
  DiscExtraction(Pump& pump, std::shared_ptr<DiscReader> reader, FileCalls& calls,
                 ExtractionPlan plan, SwdCDRipper::Events& events);

  // From the event loop's thread.
  void begin();
  void cancel();  // no event from now on; waits up to 1 s until the half-made files are gone
  // From any thread: until nothing of the disc is open any more.
  void waitForReader();

 private:
  // Of a job, under the mutex.
  struct Track {
    TrackReader::Extent extent;
    std::deque<QByteArray> waiting;  // sound that is read and not encoded
    bool begun = false, read = false, done = false;
    int encoded = 0;  // sectors
    RipResult result;
  };
  using News = std::function<void(SwdCDRipper::Events&)>;

  void runReader();
  bool readSome(size_t index);
  bool openTrack(size_t index);
  bool sameDisc(const ExtractionPlan::Track& track, QString* trouble) const;
  std::optional<size_t> nextToRead() const;
  bool mayBegin(size_t index) const;
  void runEncoder();
  bool write(size_t index);
  std::optional<QByteArray> take(size_t index);
  QString words(const NewFile& file, size_t index, int encoded);
  double bytesASector(const NewFile& file, int encoded) const;
  void finished(size_t index);
  void progress(bool always);
  void fail(const QString& text);
  void post(News news);

  Pump& pump_;
  const std::shared_ptr<DiscReader> reader_;
  FileCalls& calls_;
  const ExtractionPlan plan_;
  SwdCDRipper::Events* events_;  // of the event loop's thread; null when cancelled

  std::atomic<bool> stop_{false};
  std::mutex mutex_;  // of the rest
  std::condition_variable wake_;
  std::vector<Track> tracks_;
  size_t taken_ = 0, told_ = 0;  // jobs: by an encoder, done in the order of the jobs
  int encoding_ = 0;             // threads
  bool cancelled_ = false, reading_ = true;
  QString failure_;
  Patience::Time::time_point toldProgress_{};

  // Of the reader's thread.
  size_t current_ = 0;
  std::map<QString, std::unique_ptr<SectorReader>> sectors_;  // of each source
  std::vector<std::unique_ptr<TrackReader>> readers_;
};

}  // namespace korvane
