#include "platform/ripping/cd_ripper_cdio.h"

#include <QFileInfo>

#include <thread>

namespace korvane {

CdRipperCdio::CdRipperCdio(Pump& pump, std::shared_ptr<DiscReader> reader,
                           std::unique_ptr<CdDrives> drives, FileCalls& calls)
    : pump_(pump), reader_(std::move(reader)), drives_(std::move(drives)), calls_(calls) {
  drives_->changed = [this] {
    if (!open_) return;
    watchDrives();
    OnCDChange({});
  };
}

CdRipperCdio::~CdRipperCdio() {
  abort();
  for (const auto& [source, watched] : watched_) watched.watch->quit();
}

void CdRipperCdio::open(const QString& also) {
  if (!open_)
    for (auto& [source, watched] : watched_) watched.look.reset();
  open_ = true;
  also_ = also;
  watchDrives();
}

void CdRipperCdio::close() {
  open_ = false;
  watchDrives();
}

std::vector<SwdCDRipper::Drive> CdRipperCdio::drives() const {
  std::vector<Drive> all = drives_->drives();
  const bool known = std::ranges::find(all, also_, &Drive::source) != all.end();
  if (!also_.isEmpty() && !known) all.push_back({also_, QFileInfo(also_).fileName()});
  return all;
}

// Begins to look at what is new and ends what is no longer asked for.
void CdRipperCdio::watchDrives() {
  QStringList wanted;
  if (open_)
    for (const Drive& drive : drives()) wanted << drive.source;
  for (auto& [source, watched] : watched_) {
    if (!watched.watching || wanted.contains(source)) continue;
    watched.watch->end();
    watched.watching = false;
  }
  for (const QString& source : wanted) {
    Watched& watched = watched_[source];
    if (watched.watching) continue;
    if (!watched.watch)
      watched.watch = std::make_shared<DiscWatch>(
          reader_, pump_,
          [this, source](int number, const DiscLook& look) { heard(source, number, look); });
    watched.watching = true;
    watched.look.reset();
    watched.watch->begin(++watched.number, source);
  }
}

void CdRipperCdio::heard(const QString& source, int number, const DiscLook& look) {
  Watched& watched = watched_[source];
  if (!watched.watching || number != watched.number) return;
  watched.look = look;
  OnCDChange(source);
}

const DiscLook* CdRipperCdio::lookOf(const QString& source) const {
  const auto it = watched_.find(source);
  return it != watched_.end() && it->second.watching && it->second.look ? &*it->second.look
                                                                        : nullptr;
}

bool CdRipperCdio::looked(const QString& source) const {
  return lookOf(source) != nullptr;
}

const Disc* CdRipperCdio::disc(const QString& source) const {
  const DiscLook* look = lookOf(source);
  return look && look->state == DiscLook::Ready ? &look->disc : nullptr;
}

QString CdRipperCdio::trouble(const QString& source) const {
  if (!open_) return u"The drive is closed."_s;
  const DiscLook* look = lookOf(source);
  return look ? look->trouble : u"The CD drive does not answer."_s;
}

// One more than cores: while a file is brought to the disk, its core encodes another.
void CdRipperCdio::setSideBySide(bool on) {
  next_.encoders = on ? static_cast<int>(std::thread::hardware_concurrency()) + 1 : 1;
}

// Makes the plan of what is queued; in words what hinders it.
QString CdRipperCdio::planTracks() {
  next_.tracks.clear();
  next_.encoder.quality = std::clamp(next_.encoder.quality, 0.0, 1.0);
  for (const RipJob& job : std::exchange(queued_, {})) {
    const Disc* held = disc(job.source);
    if (!held) return u"There is no disc in %1 to rip."_s.arg(job.source);
    if (!held->has(job.track) || !held->at(job.track).audio)
      return u"The disc in %1 has no track %2 with sound."_s.arg(job.source).arg(job.track);
    next_.tracks.push_back({job, *held});
  }
  return {};
}

void CdRipperCdio::start() {
  if (running() || queued_.empty()) return;
  const QString hindrance = planTracks();
  if (!hindrance.isEmpty()) {
    hindered_ = std::make_shared<bool>(true);
    return pump_.later([this, weak = std::weak_ptr(hindered_), hindrance] {
      if (weak.lock()) OnError(hindrance);
    });
  }
  jobs_ = next_.tracks.size();
  SwdCDRipper::Events& events = *this;
  run_ = std::make_shared<RipRun>(pump_, reader_, calls_, next_, events);
  last_ = run_;
  run_->begin();
}

void CdRipperCdio::finish(const QString& source) {
  pump_.aside(
      [run = last_.lock()] {
        if (run) run->waitForReader();
      },
      [this, weak = std::weak_ptr(alive_), source] {
        if (weak.lock()) drives_->eject(source);
      });
}

void CdRipperCdio::abort() {
  queued_.clear();
  hindered_.reset();
  if (run_) std::exchange(run_, nullptr)->cancel();
}

void CdRipperCdio::OnExtractionStart(int job) {
  if (events_) events_->OnExtractionStart(job);
}

void CdRipperCdio::OnExtractionEnd(int job, const RipResult& result) {
  if (static_cast<size_t>(job) + 1 == jobs_) run_.reset();
  if (events_) events_->OnExtractionEnd(job, result);
}

void CdRipperCdio::OnProgress(double track, double total) {
  if (events_) events_->OnProgress(track, total);
}

void CdRipperCdio::OnCDChange(const QString& source) {
  if (events_) events_->OnCDChange(source);
}

void CdRipperCdio::OnError(const QString& text) {
  run_.reset();
  hindered_.reset();
  if (events_) events_->OnError(text);
}

}  // namespace korvane
