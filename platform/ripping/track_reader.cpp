#include "platform/ripping/track_reader.h"

#include <cstring>

namespace korvane {
namespace {

constexpr int kTries = 3;
constexpr int kManyReads = 150;  // for one sector: three times as many as reading ahead takes

}  // namespace

TrackReader::TrackReader(SectorReader& disc, const Extent& extent, How how)
    : disc_(disc),
      extent_(extent),
      how_(std::move(how)),
      patience_(how_.limit),
      at_(extent.first),
      checkFrom_(extent.soundFirst) {}

bool TrackReader::read(int count, char* to) {
  while (count > 0 && !ended_) {
    if (how_.stop && *how_.stop) return false;
    patience_.begin();
    const int got = how_.secure && at_ >= plainEnd_ ? readSecure(to) : readPlain(count, to);
    patience_.end(got);
    if (ended_) return false;
    const qsizetype bytes = qsizetype{got} * kSectorBytes;
    checksum_.add({to, bytes});
    to += bytes;
    at_ += got;
    count -= got;
  }
  return count == 0;
}

// All of them, or one where they do not come together. None when the disc is gone.
int TrackReader::readPlain(int room, char* to) {
  const int count = how_.secure ? std::min(room, plainEnd_ - at_) : room;
  if (singly_ == 0 && disc_.read(at_, count, to)) {
    if (how_.secure) mark(RipResult::Doubtful, at_);
    return count;
  }
  if (singly_ == 0) {
    singly_ = count;
    if (failed()) return 0;
  }
  --singly_;
  for (int tries = 0; tries < kTries; ++tries) {
    if (readOne(to)) return 1;
    if (ended_) return 0;
    if (patience_.over()) break;
  }
  mark(RipResult::Doubtful, at_);
  const int rest = kSectorsPerSecond - (at_ - extent_.first) % kSectorsPerSecond;
  const int silent = patience_.over() ? std::min({rest, room, left()}) : 1;
  std::memset(to, 0, static_cast<size_t>(silent) * kSectorBytes);
  singly_ = std::max(0, singly_ - (silent - 1));
  // The checks cannot begin at a sector that is lost: the next one is tried before them.
  plainEnd_ = std::max(plainEnd_, std::min(at_ + silent + 1, at_ + left()));
  checkFrom_ = at_ + silent;
  return silent;
}

bool TrackReader::readOne(char* to) {
  if (disc_.read(at_, 1, to)) return true;
  failed();
  return false;
}

// One, or none: the checks gave up, or the disc is gone. Checks that lost a sector fill in more
// than that, so they begin anew behind it and look at nothing before.
int TrackReader::readSecure(char* to) {
  if (!paranoia_) {
    ParanoiaReader::Witness& witness = *this;
    paranoia_ = std::make_unique<ParanoiaReader>(disc_, witness, checkFrom_, extent_.soundEnd, at_);
  }
  const char* sector = paranoia_->next();
  if (ended_) return 0;
  const bool lost = at_ >= lostAt_;
  if (sector && !lost) {
    std::memcpy(to, sector, kSectorBytes);
    return 1;
  }
  paranoia_.reset();
  lostAt_ = kNowhere;
  mark(RipResult::Doubtful, at_);
  const int rest = kSectorsPerSecond - (at_ - extent_.first) % kSectorsPerSecond;
  plainEnd_ = checkFrom_ = at_ + (sector ? 1 : std::min(rest, left()));
  return 0;
}

void TrackReader::happened(ParanoiaReader::Event event, int sector) {
  patience_.trouble();
  if (event == ParanoiaReader::Lost)
    lostAt_ = std::min(lostAt_, sector);
  else
    mark(RipResult::Repaired, sector);
}

bool TrackReader::giveUp(bool unread, int reads) {
  if (unread) failed();
  if (reads > kManyReads) patience_.trouble();
  if (how_.stop && *how_.stop) ended_ = true;
  return ended_ || patience_.over();
}

// After a sector could not be read. True when there is nothing to go on with.
bool TrackReader::failed() {
  patience_.trouble();
  const auto now = Patience::Time::now();
  if (how_.gone && now - askedGone_ > std::chrono::seconds(1)) {
    ended_ = how_.gone() || ended_;
    askedGone_ = Patience::Time::now();
  }
  if (how_.stop && *how_.stop) ended_ = true;
  return ended_;
}

void TrackReader::mark(RipResult::Reading reading, int sector) {
  if (sector < extent_.first || sector >= extent_.first + extent_.sectors) return;
  QList<int>& seconds = reading == RipResult::Doubtful ? doubtful_ : repaired_;
  const int second = secondOf(sector);
  const auto place = std::ranges::lower_bound(seconds, second);
  if (place == seconds.end() || *place != second) seconds.insert(place, second);
}

RipResult TrackReader::result() const {
  RipResult result;
  result.checksum = checksum_.value();
  result.reading = !doubtful_.isEmpty()   ? RipResult::Doubtful
                   : !how_.secure         ? RipResult::Unchecked
                   : !repaired_.isEmpty() ? RipResult::Repaired
                                          : RipResult::Clean;
  result.doubtful = result.reading == RipResult::Doubtful ? doubtful_ : repaired_;
  return result;
}

}  // namespace korvane
