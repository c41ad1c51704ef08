// The sound of one track to its end, whatever the disc does: what cannot be read is silent, or as
// it came, and is remembered.
#pragma once

#include <atomic>

#include "platform/cd_ripper.h"
#include "platform/ripping/crc32.h"
#include "platform/ripping/paranoia_reader.h"
#include "platform/ripping/patience.h"

namespace korvane {

class TrackReader : private ParanoiaReader::Witness {
 public:
  struct Extent {
    int first = 0, sectors = 0;        // of the track
    int soundFirst = 0, soundEnd = 0;  // of the sound around it, which may be read
  };
  struct How {
    bool secure = false;
    Patience::Time::duration limit = std::chrono::seconds(30);  // at one place
    const std::atomic<bool>* stop = nullptr;                    // set from any thread: reading ends
    std::function<bool()> gone;  // asked after a failure: there is another disc, or none
  };

  // The reader is not owned. Used by one thread.
  TrackReader(SectorReader& disc, const Extent& extent, How how);

  // The next `count` sectors. False when reading was stopped or the disc is gone.
  bool read(int count, char* to);
  int left() const { return extent_.first + extent_.sectors - at_; }  // sectors
  // Of what was read so far; without path.
  RipResult result() const;

 private:
  void happened(ParanoiaReader::Event event, int sector) override;
  bool giveUp(bool unread, int reads) override;
  int readPlain(int room, char* to);
  int readSecure(char* to);
  bool readOne(char* to);
  bool failed();
  void mark(RipResult::Reading reading, int sector);
  int secondOf(int sector) const { return (sector - extent_.first) / kSectorsPerSecond; }

  SectorReader& disc_;
  const Extent extent_;
  const How how_;
  Patience patience_;
  std::unique_ptr<ParanoiaReader> paranoia_;
  int at_;          // the next sector
  int singly_ = 0;  // sectors ahead that are read one by one
  static constexpr int kNowhere = 1 << 30;
  int lostAt_ = kNowhere;  // the first sector that the checks did not get
  int checkFrom_;          // the checks look at nothing before
  int plainEnd_ = 0;       // up to there without the checks, which gave up
  bool ended_ = false;     // stopped or gone
  Patience::Time::time_point askedGone_{};
  Crc32 checksum_;
  QList<int> repaired_, doubtful_;  // seconds, in order
};

}  // namespace korvane
