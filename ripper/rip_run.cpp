#include "ripper/rip_run.h"

#include "ripper/ripped_songs.h"

namespace korvane {
namespace {

constexpr int kAbortMs = 5000;

QString readingText(const RipResult& result) {
  switch (result.reading) {
    case RipResult::Unchecked:
      return u"not checked"_s;
    case RipResult::Clean:
      return u"clean"_s;
    case RipResult::Repaired:
      return u"repaired"_s;
    case RipResult::Doubtful:
      return u"not clean at "_s + placesText(result.doubtful);
  }
  Q_UNREACHABLE();
}

}  // namespace

QString durationText(int seconds) {
  return u"%1:%2"_s.arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

QString placesText(const QList<int>& seconds) {
  QStringList places;
  for (const int each : seconds) places << durationText(each);
  return places.join(u", "_s);
}

RipRun::RipRun(Uses uses) : uses_(uses) {
  uses_.ripper.setEvents(this);
}

RipRun::~RipRun() {
  uses_.ripper.setEvents(nullptr);
}

void RipRun::start(const RipOrder& order) {
  order_ = order;
  cancelled_ = false;
  atWork_ = true;
  finishedCount_ = notEntered_ = 0;
  total_ = track_ = 0;
  doubtful_.clear();
  uses_.ripper.setEncoder(order_.encoder);
  uses_.ripper.setSecure(order_.secure);
  uses_.ripper.setSideBySide(order_.sideBySide);
  for (const RipJob& job : order_.jobs) uses_.ripper.queueTrack(job);
  for (RipNews* each : news) each->runBegan();
  uses_.ripper.start();
}

void RipRun::OnExtractionStart(int job) {
  if (!atWork_ || job < 0 || job >= selectedCount()) return;
  track_ = 0;
  for (RipNews* each : news) each->trackBegan(order_.queue[static_cast<size_t>(job)]);
}

void RipRun::OnProgress(double track, double total) {
  if (!atWork_) return;
  track_ = track;
  total_ = total;
  for (RipNews* each : news) each->runMoved();
}

void RipRun::OnExtractionEnd(int job, const RipResult& result) {
  if (cancelled_ || !atWork_ || job < 0 || job >= selectedCount()) return;
  ++finishedCount_;
  anyRipped_ = true;
  const RipTrack& track = order_.queue[static_cast<size_t>(job)];
  if (order_.secure) note(job, result);
  const bool entered = enter(track, result);
  for (RipNews* each : news) each->trackEnded(track, result, entered);
  if (finishedCount_ >= selectedCount()) stopit(true);
}

// A row that cannot be written ends its own track and no other.
bool RipRun::enter(const RipTrack& track, const RipResult& result) {
  try {
    enterSong(uses_.database, track.names, track.path.isEmpty() ? result.path : track.path);
    return true;
  } catch (const std::exception& failure) {
    whyNotEntered_ = QString::fromUtf8(failure.what());
    uses_.log.error(5, whyNotEntered_, "CDRipper_OnExtractionEnd", "Form frmRipper");
    ++notEntered_;
    return false;
  }
}

void RipRun::note(int job, const RipResult& result) {
  const QString checksum = u"%1"_s.arg(result.checksum, 8, 16, QChar(u'0'));
  uses_.log.logIt(
      u"Ripped %1: %2, CRC-32 %3"_s.arg(result.path, readingText(result), checksum.toUpper()));
  if (result.reading == RipResult::Doubtful)
    doubtful_ << u"track %1 at %2"_s.arg(
        QString::number(order_.jobs[static_cast<size_t>(job)].track), placesText(result.doubtful));
}

void RipRun::OnError(const QString& text) {
  if (cancelled_ || !atWork_) return;
  uses_.log.logIt(u"Ripper: "_s + text);
  uses_.pump.later([this, text] { uses_.messages.say(text); });
  finishedCount_ = selectedCount();
  stopit(false);
}

void RipRun::abort() {
  cancelled_ = true;
  uses_.ripper.abort();
  uses_.pump.wait(kAbortMs, [this] { return !uses_.ripper.running(); });
}

void RipRun::cancel() {
  if (!atWork_ || cancelled_) return;
  abort();
  stopit(false);
}

void RipRun::stop() {
  if (!atWork_) return;
  abort();
  atWork_ = anyRipped_ = false;  // the next start reads the library anyway
  for (RipNews* each : news) each->runEnded(false);
}

void RipRun::stopit(bool whole) {
  for (RipNews* each : news) each->runEnds();
  uses_.ripper.finish(order_.source);
  uses_.pump.doEvents();
  atWork_ = false;
  for (RipNews* each : news) each->runEnded(whole);
  sayAtEnd();
}

// What a user has to know of the run, in one box.
void RipRun::sayAtEnd() {
  QStringList words;
  if (!doubtful_.isEmpty())
    words << u"Not everything could be read cleanly: %1. Wipe the disc and rip it again, or listen "
             "to these places."_s.arg(doubtful_.join(u", "_s));
  if (notEntered_ > 0)
    words << u"%1 of the ripped songs are not in the library: %2 Their files lie in %3; a scan of "
             "that folder brings them in."_s.arg(
                 QString::number(notEntered_), whyNotEntered_,
                 FileSystem::GetParentFolderName(order_.jobs.front().output));
  if (words.isEmpty()) return;
  uses_.pump.later([this, words] { uses_.messages.say(words.join(u" "_s)); });
}

}  // namespace korvane
