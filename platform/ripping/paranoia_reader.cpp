#include "platform/ripping/paranoia_reader.h"

#include <cerrno>

namespace korvane {
namespace {

constexpr int kSectorsAtOnce = 25, kRetries = 20, kLeastAhead = 75;
constexpr int kBefore = 15;  // sectors read ahead of the first, to find its place by
constexpr int kMode = PARANOIA_MODE_FULL & ~PARANOIA_MODE_NEVERSKIP;

// Whose call of next() is at work on this thread: libcdio-paranoia's news come without an object.
thread_local ParanoiaReader* reading = nullptr;

// The one answer on which libcdio-paranoia does not try again.
long leave() {
  errno = ENOMEDIUM;
  return -1;
}

}  // namespace

ParanoiaReader::ParanoiaReader(SectorReader& disc, Witness& witness, int first, int end, int at)
    : cdrom_drive_t{},
      disc_(disc),
      witness_(witness),
      first_(first),
      end_(end),
      at_(std::max(first, at - kBefore)),
      begin_(at) {
  opened = 1;
  nsectors = kSectorsAtOnce;
  bigendianp = 0;
  read_audio = readAudio;
  paranoia_ = cdio_paranoia_init(this);
  cdio_paranoia_modeset(paranoia_, kMode);
  cdio_paranoia_cachemodel_size(paranoia_, std::max(kLeastAhead, disc.remembered()));
  cdio_paranoia_set_range(paranoia_, at_, end - 1);
}

ParanoiaReader::~ParanoiaReader() {
  cdio_paranoia_free(paranoia_);
}

const char* ParanoiaReader::next() {
  const int16_t* sector = nullptr;
  reading = this;
  do {
    reads_ = 0;
    sector = cdio_paranoia_read_limited(paranoia_, heard, kRetries);
  } while (sector && !gaveUp_ && at_++ < begin_);
  reading = nullptr;
  return gaveUp_ ? nullptr : reinterpret_cast<const char*>(sector);
}

void ParanoiaReader::heard(long place, paranoia_cb_mode_t what) {
  const int sector = static_cast<int>(place / CD_FRAMEWORDS);
  switch (what) {
    case PARANOIA_CB_READERR:
      return reading->witness_.happened(Unread, sector);
    case PARANOIA_CB_SKIP:
      return reading->witness_.happened(Lost, sector);
    case PARANOIA_CB_FIXUP_EDGE:
    case PARANOIA_CB_FIXUP_ATOM:
    case PARANOIA_CB_FIXUP_DROPPED:
    case PARANOIA_CB_FIXUP_DUPED:
    case PARANOIA_CB_DRIFT:
      return reading->witness_.happened(Fixed, sector);
    default:
      return;
  }
}

// The number of sectors that could be read, from the first on.
long ParanoiaReader::readAudio(cdrom_drive_t* self, void* to, lsn_t first, long count) {
  return static_cast<ParanoiaReader*>(self)->readSectors(static_cast<char*>(to), first,
                                                         static_cast<int>(count));
}

long ParanoiaReader::readSectors(char* to, int first, int count) {
  const auto giveUp = [this](bool unread) {
    gaveUp_ = gaveUp_ || witness_.giveUp(unread, reads_);
    return gaveUp_;
  };
  ++reads_;
  const bool given = giveUp(false);
  if (!to) {  // it only wants the drive to move its head, and tries until that works
    std::array<char, kSectorBytes> nowhere;
    if (!given) disc_.read(std::clamp(first, first_, end_ - 1), 1, nowhere.data());
    return count;
  }
  if (given) return leave();
  if (disc_.read(first, count, to)) return count;
  int good = 0;
  while (good < count && !giveUp(true) &&
         disc_.read(first + good, 1, to + qsizetype{good} * kSectorBytes))
    ++good;
  return gaveUp_ ? leave() : good;
}

}  // namespace korvane
