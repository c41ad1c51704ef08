// Ripping by libcdio-paranoia and the encoders' own libraries. One watch looks at each drive; a run
// has threads of its own.
#pragma once

#include <map>

#include "platform/cd_ripper.h"
#include "platform/disc/cd_drives.h"
#include "platform/disc/disc_watch.h"
#include "platform/ripping/disc_extraction.h"

namespace korvane {

class CdRipperCdio final : public SwdCDRipper, private SwdCDRipper::Events {
 public:
  // The pump and the calls are not owned and must outlive this.
  CdRipperCdio(Pump& pump, std::shared_ptr<DiscReader> reader, std::unique_ptr<CdDrives> drives,
               FileCalls& calls = FileCalls::posix());
  // Ends the run as abort() does, and each watch, which takes up to 1 s where a drive hangs.
  ~CdRipperCdio() override;

  void setEvents(SwdCDRipper::Events* events) override { events_ = events; }
  void open(const QString& also) override;
  void close() override;
  std::vector<Drive> drives() const override;
  bool looked(const QString& source) const override;
  const Disc* disc(const QString& source) const override;
  QString trouble(const QString& source) const override;
  void setEncoder(const SwdMP3Encoder& encoder) override { next_.encoder = encoder; }
  void setSecure(bool on) override { next_.secure = on; }
  void setSideBySide(bool on) override;
  void queueTrack(const RipJob& job) override { queued_.push_back(job); }
  void start() override;
  void abort() override;
  bool running() const override { return run_ || hindered_; }
  void finish(const QString& source) override;

 private:
  struct Watched {
    std::shared_ptr<DiscWatch> watch;
    std::optional<DiscLook> look;  // the last one since open()
    int number = 0;                // of the watch at hand
    bool watching = false;
  };
  const DiscLook* lookOf(const QString& source) const;
  void watchDrives();
  void heard(const QString& source, int number, const DiscLook& look);
  QString planTracks();

  void OnExtractionStart(int job) override;
  void OnExtractionEnd(int job, const RipResult& result) override;
  void OnProgress(double track, double total) override;
  void OnCDChange(const QString& source) override;
  void OnError(const QString& text) override;

  Pump& pump_;
  const std::shared_ptr<DiscReader> reader_;
  const std::unique_ptr<CdDrives> drives_;
  FileCalls& calls_;
  SwdCDRipper::Events* events_ = nullptr;
  bool open_ = false;
  QString also_;
  std::map<QString, Watched> watched_;  // of every source that was ever there
  ExtractionPlan next_;
  std::vector<RipJob> queued_;
  std::shared_ptr<DiscExtraction> run_;
  std::weak_ptr<DiscExtraction> last_;  // run: its reader may still hold the drive
  std::shared_ptr<bool> hindered_;      // a run that could not begin, until that is heard
  size_t jobs_ = 0;                     // of the run
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace korvane
