// A run: the queued tracks of one disc are read, encoded and entered in the library, one after the
// other. It belongs to the console and not to a form, so it goes on while other things are done.
#pragma once

#include "core/log.h"
#include "core/prompt.h"
#include "library/data/database.h"
#include "platform/cd_ripper.h"
#include "platform/pump.h"
#include "ripper/rip_names.h"

namespace korvane {

struct RipTrack {
  StoredNames names;  // of its row in the library
  QString path;       // full file name in the library; empty: the one that the file gets
  int gridRow = 0;
};

struct RipOrder {
  QString source, artist, album;
  std::vector<RipTrack> queue;
  std::vector<RipJob> jobs;  // one for each
  SwdMP3Encoder encoder;
  bool secure = false, sideBySide = false;
};

// Hears a run, from the event loop.
class RipNews {
 public:
  virtual ~RipNews() = default;
  virtual void runBegan() = 0;
  virtual void runMoved() = 0;                         // as RipRun tells
  virtual void trackBegan(const RipTrack& track) = 0;  // to be read
  virtual void trackEnded(const RipTrack& track, const RipResult& result, bool entered) = 0;
  virtual void runEnds() = 0;             // the door of the drive is being opened
  virtual void runEnded(bool whole) = 0;  // neither cancelled nor failed
};

class RipRun : private SwdCDRipper::Events {
 public:
  struct Uses {  // none owned
    SwdCDRipper& ripper;
    Database& database;
    Messages& messages;
    const Log& log;
    Pump& pump;
  };
  explicit RipRun(Uses uses);
  ~RipRun() override;

  std::vector<RipNews*> news;  // not owned; set before the first run
  // A drive has another disc, or none; empty: there are other drives.
  std::function<void(const QString& source)> discChanged = [](const QString&) {};

  void start(const RipOrder& order);  // not while one is at work
  void cancel();                      // Yields.
  void stop();                        // at the end of the program, without a word. Yields.

  bool atWork() const { return atWork_; }
  const QString& source() const { return order_.source; }
  int selectedCount() const { return static_cast<int>(order_.queue.size()); }
  int finishedCount() const { return finishedCount_; }
  double total() const { return total_; }  // percent, of the whole run
  double track() const { return track_; }  // percent, of the track that was begun last
  bool takeAnyRipped() { return std::exchange(anyRipped_, false); }  // since it was asked last

 private:
  void OnExtractionStart(int job) override;
  void OnExtractionEnd(int job, const RipResult& result) override;
  void OnProgress(double track, double total) override;
  void OnCDChange(const QString& source) override { discChanged(source); }
  void OnError(const QString& text) override;

  bool enter(const RipTrack& track, const RipResult& result);
  void note(int job, const RipResult& result);
  void abort();
  void stopit(bool whole);  // Yields.
  void sayAtEnd();

  const Uses uses_;
  RipOrder order_;
  int finishedCount_ = 0;
  double total_ = 0, track_ = 0;
  bool atWork_ = false, cancelled_ = false, anyRipped_ = false;
  QStringList doubtful_;  // tracks that are not clean, and where
  int notEntered_ = 0;
  QString whyNotEntered_;
};

QString durationText(int seconds);  // "1:05"
// "1:05, 2:10"
QString placesText(const QList<int>& seconds);

}  // namespace korvane
