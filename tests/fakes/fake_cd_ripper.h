// Drives in a test's hand: they hold the discs it puts in, and a run goes on when it says so.
#pragma once

#include <map>

#include "platform/cd_ripper.h"

namespace korvane {

class FakeCdRipper : public SwdCDRipper {
 public:
  void setEvents(Events* events) override { events_ = events; }
  void open(const QString& also) override {
    isOpen = true;
    alsoOpened = also;
  }
  void close() override { isOpen = false; }
  std::vector<Drive> drives() const override { return known; }
  bool looked(const QString& source) const override { return isOpen && answers.contains(source); }
  const Disc* disc(const QString& source) const override {
    const auto it = held.find(source);
    return isOpen && it != held.end() ? &it->second : nullptr;
  }
  QString trouble(const QString& source) const override { return troubles.value(source); }
  void setEncoder(const SwdMP3Encoder& to) override { encoder = to; }
  void setSecure(bool on) override { secure = on; }
  void setSideBySide(bool on) override { sideBySide = on; }
  void queueTrack(const RipJob& job) override { queued.push_back(job); }
  void start() override { running_ = !queued.empty(); }
  void abort() override {
    ++aborts;
    running_ = false;
    queued.clear();
  }
  bool running() const override { return running_; }
  void finish(const QString& source) override { ejected << source; }

  void drive(const QString& source, const QString& name) { known.push_back({source, name}); }
  // Tracks that long, in seconds, with their CD-TEXT titles.
  void put(const QString& source, const QList<std::pair<int, QString>>& tracks) {
    Disc disc;
    int first = 0;
    for (const auto& [seconds, title] : tracks) {
      disc.tracks.push_back({first, seconds * kSectorsPerSecond, true, title, {}});
      first += seconds * kSectorsPerSecond;
    }
    held[source] = disc;
    tell(source);
  }
  void takeOut(const QString& source) {
    held.erase(source);
    tell(source);
  }
  void tell(const QString& source) {
    answers << source;
    if (events_ && isOpen) events_->OnCDChange(source);
  }
  void begin(int job) { events_->OnExtractionStart(job); }
  void progress(double track, double total) { events_->OnProgress(track, total); }
  // The job's file is done; the last one ends the run.
  void end(int job, RipResult result = {}) {
    const RipJob& ripped = queued.at(static_cast<size_t>(job));
    if (result.path.isEmpty()) result.path = ripped.output + u".mp3"_s;
    if (job + 1 == static_cast<int>(queued.size())) over();
    events_->OnExtractionEnd(job, result);
  }
  void fail(const QString& text) {
    over();
    events_->OnError(text);
  }

  std::vector<Drive> known;
  std::map<QString, Disc> held;
  QHash<QString, QString> troubles;
  QStringList answers, ejected;
  SwdMP3Encoder encoder;
  std::vector<RipJob> queued, done;  // of the run at hand, of those before
  QString alsoOpened;
  bool isOpen = false, secure = false, sideBySide = false;
  int aborts = 0;

 private:
  void over() {
    running_ = false;
    done = std::exchange(queued, {});
  }
  Events* events_ = nullptr;
  bool running_ = false;
};

}  // namespace korvane
