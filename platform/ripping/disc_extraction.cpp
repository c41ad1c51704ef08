#include "platform/ripping/disc_extraction.h"

#include <sys/resource.h>
#include <sys/statvfs.h>

#include <QLocale>

#include <cerrno>
#include <thread>

#include "platform/path_text.h"
#include "platform/ripping/sound_encoder.h"

namespace korvane {
namespace {

constexpr int kChunkSectors = 25;
constexpr qsizetype kWaitingBytes = qsizetype{16} << 20;  // of all tracks
constexpr auto kBetweenProgress = std::chrono::milliseconds(100);
constexpr auto kLongestGoodbye = std::chrono::seconds(1);
constexpr char kPartial[] = "rip-";

// Of this thread alone: the screen and what sounds come first.
void stepBack() {
  constexpr int kNicer = 5;
  ::setpriority(PRIO_PROCESS, 0, ::getpriority(PRIO_PROCESS, 0) + kNicer);
}

// The sound around a track that goes on without a gap or data.
TrackReader::Extent extentOf(const Disc& disc, int track) {
  const DiscTrack& wanted = disc.at(track);
  TrackReader::Extent extent{wanted.first, wanted.sectors, wanted.first,
                             wanted.first + wanted.sectors};
  for (int i = track - 1; disc.has(i) && disc.at(i).audio; --i) {
    if (disc.at(i).first + disc.at(i).sectors != extent.soundFirst) break;
    extent.soundFirst = disc.at(i).first;
  }
  for (int i = track + 1; disc.has(i) && disc.at(i).audio; ++i) {
    if (disc.at(i).first != extent.soundEnd) break;
    extent.soundEnd += disc.at(i).sectors;
  }
  return extent;
}

qsizetype bytesOf(const std::deque<QByteArray>& chunks) {
  qsizetype bytes = 0;
  for (const QByteArray& chunk : chunks) bytes += chunk.size();
  return bytes;
}

double percent(qint64 part, qint64 whole) {
  return 100.0 * static_cast<double>(part) / static_cast<double>(std::max<qint64>(whole, 1));
}

}  // namespace

DiscExtraction::DiscExtraction(Pump& pump, std::shared_ptr<DiscReader> reader, FileCalls& calls,
                               ExtractionPlan plan, SwdCDRipper::Events& events)
    : pump_(pump),
      reader_(std::move(reader)),
      calls_(calls),
      plan_(std::move(plan)),
      events_(&events) {
  for (const ExtractionPlan::Track& track : plan_.tracks) {
    tracks_.emplace_back();
    tracks_.back().extent = extentOf(track.disc, track.job.track);
  }
  readers_.resize(tracks_.size());
}

void DiscExtraction::begin() {
  encoding_ = std::min(plan_.encoders, static_cast<int>(tracks_.size()));
  for (int i = 0; i < encoding_; ++i)
    std::thread([self = shared_from_this()] { self->runEncoder(); }).detach();
  std::thread([self = shared_from_this()] { self->runReader(); }).detach();
}

void DiscExtraction::cancel() {
  events_ = nullptr;
  std::unique_lock lock(mutex_);
  cancelled_ = stop_ = true;
  wake_.notify_all();
  wake_.wait_for(lock, kLongestGoodbye, [this] { return encoding_ == 0; });
}

void DiscExtraction::runReader() {
  stepBack();
  std::unique_lock lock(mutex_);
  const auto allRead = [this] { return std::ranges::all_of(tracks_, &Track::read); };
  while (!stop_ && !allRead()) {
    const std::optional<size_t> next = nextToRead();
    if (!next) {
      wake_.wait(lock);
      continue;
    }
    current_ = *next;
    lock.unlock();
    const bool good = (readers_[current_] || openTrack(current_)) && readSome(current_);
    lock.lock();
    if (!good) break;
  }
  lock.unlock();
  readers_.clear();
  sectors_.clear();
  lock.lock();
  reading_ = false;
  wake_.notify_all();
}

void DiscExtraction::waitForReader() {
  std::unique_lock lock(mutex_);
  wake_.wait(lock, [this] { return !reading_; });
}

// The job at hand until it has enough waiting, then the first that has little.
std::optional<size_t> DiscExtraction::nextToRead() const {
  const qsizetype most = kWaitingBytes / plan_.encoders;
  const auto hasRoom = [&](size_t index, qsizetype limit) {
    return !tracks_[index].read && mayBegin(index) && bytesOf(tracks_[index].waiting) < limit;
  };
  if (hasRoom(current_, most)) return current_;
  for (size_t i = 0; i < tracks_.size(); ++i)
    if (hasRoom(i, most / 2)) return i;
  return std::nullopt;
}

bool DiscExtraction::mayBegin(size_t index) const {
  const auto before = tracks_.begin() + static_cast<std::ptrdiff_t>(index);
  return std::count_if(tracks_.begin(), before, [](const Track& track) { return !track.done; }) <
         plan_.encoders;
}

bool DiscExtraction::sameDisc(const ExtractionPlan::Track& track, QString* trouble) const {
  const DiscLook look = reader_->look(track.job.source, {});
  *trouble = look.trouble;
  return look.state == DiscLook::Ready && look.disc.tracks == track.disc.tracks;
}

bool DiscExtraction::openTrack(size_t index) {
  const ExtractionPlan::Track& track = plan_.tracks[index];
  const RipJob& job = track.job;
  QString trouble;
  std::unique_ptr<SectorReader>& sectors = sectors_[job.source];
  const bool same = sameDisc(track, &trouble);
  if (same && !sectors) sectors = reader_->carefulSectors(job.source, plan_.secure);
  if (!same || !sectors) {
    fail(u"Track %1 of %2 cannot be read: %3"_s.arg(job.track).arg(
        job.source, !trouble.isEmpty() ? trouble
                    : same             ? u"the drive does not open."_s
                                       : u"the disc was taken out or changed."_s));
    return false;
  }
  TrackReader::How how;
  how.secure = plan_.secure;
  how.limit = plan_.limit;
  how.stop = &stop_;
  how.gone = [this, &track] {
    QString why;
    return !sameDisc(track, &why);
  };
  readers_[index] = std::make_unique<TrackReader>(*sectors, tracks_[index].extent, how);
  const std::lock_guard lock(mutex_);
  tracks_[index].begun = true;
  wake_.notify_all();
  return true;
}

bool DiscExtraction::readSome(size_t index) {
  TrackReader& reader = *readers_[index];
  const int count = std::min(kChunkSectors, reader.left());
  QByteArray chunk(qsizetype{count} * kSectorBytes, Qt::Uninitialized);
  if (!reader.read(count, chunk.data())) {
    const RipJob& job = plan_.tracks[index].job;
    fail(u"Track %1 of %2 could not be read to its end: the disc was taken out or changed."_s
             .arg(job.track)
             .arg(job.source));
    return false;
  }
  const std::lock_guard lock(mutex_);
  Track& track = tracks_[index];
  track.waiting.push_back(std::move(chunk));
  track.read = reader.left() == 0;
  if (track.read) track.result = reader.result();
  wake_.notify_all();
  return true;
}

void DiscExtraction::runEncoder() {
  stepBack();
  std::unique_lock lock(mutex_);
  while (true) {
    wake_.wait(lock, [this] { return stop_ || taken_ == tracks_.size() || tracks_[taken_].begun; });
    if (stop_ || taken_ == tracks_.size()) break;
    const size_t index = taken_++;
    post([index](SwdCDRipper::Events& to) { to.OnExtractionStart(static_cast<int>(index)); });
    lock.unlock();
    const bool whole = write(index);
    lock.lock();
    if (whole) finished(index);
  }
  --encoding_;
  wake_.notify_all();
  if (encoding_ == 0 && !failure_.isEmpty())
    post([text = failure_](SwdCDRipper::Events& to) { to.OnError(text); });
}

// False when it failed, which was said then, or was stopped.
bool DiscExtraction::write(size_t index) {
  const RipJob& job = plan_.tracks[index].job;
  const QString path = job.output + endingOf(plan_.encoder.format);
  const QByteArray target = fromPath(path);
  removeLeftOvers(target.first(target.lastIndexOf('/') + 1), kPartial);
  NewFile file(calls_, target, kPartial);
  constexpr int kFrames = kSectorBytes / 4;
  const std::unique_ptr<SoundEncoder> encoder =
      makeEncoder(plan_.encoder, job.tags, qint64{tracks_[index].extent.sectors} * kFrames, file);
  bool good = encoder != nullptr;
  int encoded = 0;
  while (good) {
    const std::optional<QByteArray> chunk = take(index);
    if (!chunk) return false;
    if (chunk->isEmpty()) break;
    good = encoder->encode({reinterpret_cast<const qint16*>(chunk->constData()),
                            static_cast<size_t>(chunk->size()) / sizeof(qint16)});
    encoded += static_cast<int>(chunk->size() / kSectorBytes);
    const std::lock_guard lock(mutex_);
    tracks_[index].encoded = encoded;
    progress(false);
  }
  good = good && encoder->finish() && !stop_ && file.commit();
  if (!good && !stop_) fail(words(file, index, encoded));
  if (good) {
    const std::lock_guard lock(mutex_);
    tracks_[index].result.path = path;
  }
  return good;
}

// The next sound of a track; empty at its end, nothing when the run was stopped.
std::optional<QByteArray> DiscExtraction::take(size_t index) {
  std::unique_lock lock(mutex_);
  Track& track = tracks_[index];
  wake_.wait(lock, [&] { return stop_ || track.read || !track.waiting.empty(); });
  if (stop_) return std::nullopt;
  if (track.waiting.empty()) return QByteArray();
  QByteArray chunk = std::move(track.waiting.front());
  track.waiting.pop_front();
  wake_.notify_all();
  return chunk;
}

double DiscExtraction::bytesASector(const NewFile& file, int encoded) const {
  if (plan_.encoder.format != RipFormat::Flac)
    return plan_.encoder.bitRate / 8.0 / kSectorsPerSecond;
  return encoded > 0 ? static_cast<double>(file.written()) / encoded : kSectorBytes;
}

// Why a file could not be written, with the room that the rest of the run lacks.
QString DiscExtraction::words(const NewFile& file, size_t index, int encoded) {
  const QString path = plan_.tracks[index].job.output + endingOf(plan_.encoder.format);
  const int failure = file.failure();
  if (failure == 0) return u"Could not encode %1: the encoder refuses the settings."_s.arg(path);
  if (failure != ENOSPC && failure != EDQUOT) return fileFailure("write"_L1, path, failure);
  qint64 sectors = 0;
  {
    const std::lock_guard lock(mutex_);
    for (const Track& track : tracks_) sectors += track.done ? 0 : track.extent.sectors;
  }
  struct statvfs disk {};
  const QByteArray folder = fromPath(path).first(fromPath(path).lastIndexOf('/') + 1);
  const bool known = ::statvfs(folder.constData(), &disk) == 0;
  const qint64 free = known ? static_cast<qint64>(disk.f_bavail * disk.f_frsize) : 0;
  const double needed = bytesASector(file, encoded) * static_cast<double>(sectors);
  const qint64 missing = std::max<qint64>(static_cast<qint64>(needed) - file.written() - free, 1);
  return u"Could not write %1. The disk is full: %2 bytes are missing for what is left to rip. "
         "Free some room on it and try again."_s.arg(path,
                                                     QLocale(QLocale::English).toString(missing));
}

void DiscExtraction::finished(size_t index) {
  tracks_[index].done = true;
  tracks_[index].encoded = tracks_[index].extent.sectors;
  wake_.notify_all();
  for (; told_ < tracks_.size() && tracks_[told_].done; ++told_) {
    if (told_ + 1 == tracks_.size()) progress(true);
    post([job = static_cast<int>(told_), result = tracks_[told_].result](SwdCDRipper::Events& to) {
      to.OnExtractionEnd(job, result);
    });
  }
}

void DiscExtraction::progress(bool always) {
  const auto now = Patience::Time::now();
  if (!always && now - toldProgress_ < kBetweenProgress) return;
  toldProgress_ = now;
  qint64 part = 0, whole = 0;
  for (const Track& track : tracks_) {
    part += track.encoded;
    whole += track.extent.sectors;
  }
  const Track& at = tracks_[std::min(told_, tracks_.size() - 1)];
  post([track = percent(at.encoded, at.extent.sectors),
        total = percent(part, whole)](SwdCDRipper::Events& to) { to.OnProgress(track, total); });
}

void DiscExtraction::fail(const QString& text) {
  const std::lock_guard lock(mutex_);
  if (failure_.isEmpty()) failure_ = text;
  stop_ = true;
  wake_.notify_all();
}

// Under the mutex, so that the events keep their order and none comes after cancel().
void DiscExtraction::post(News news) {
  if (cancelled_) return;
  pump_.later([weak = weak_from_this(), news = std::move(news)] {
    const std::shared_ptr<DiscExtraction> self = weak.lock();
    if (self && self->events_) news(*self->events_);
  });
}

}  // namespace korvane
