// The sound of a disc with libcdio-paranoia's checks: each sample is taken when two readings agree
// on it and on what surrounds it. It reads through a SectorReader, never libcdio itself, so that it
// waits for no other reader.
#pragma once

#include <cdio/paranoia/paranoia.h>

#include "platform/disc/disc_reader.h"

namespace korvane {

class ParanoiaReader : private cdrom_drive_t {
 public:
  // What happened at a sector, as far as next() was concerned with it. It reads ahead.
  enum Event { Unread, Fixed, Lost };
  class Witness {
   public:
    virtual ~Witness() = default;
    virtual void happened(Event event, int sector) = 0;
    virtual bool giveUp(bool unread, int reads) = 0;  // before and after a reading: no more of them
  };

  // From sector `at`; nothing outside `first` to `end` (exclusive) is read. The reader and the
  // witness are not owned. Used by one thread.
  ParanoiaReader(SectorReader& disc, Witness& witness, int first, int end, int at);
  ~ParanoiaReader();
  ParanoiaReader(const ParanoiaReader&) = delete;

  // The next sector; stands until the next call. Null when the witness gave up.
  const char* next();

 private:
  static long readAudio(cdrom_drive_t* self, void* to, lsn_t first, long count);
  static void heard(long place, paranoia_cb_mode_t what);
  long readSectors(char* to, int first, int count);

  SectorReader& disc_;
  Witness& witness_;
  const int first_, end_;
  cdrom_paranoia_t* paranoia_ = nullptr;
  int at_ = 0, begin_ = 0;  // the sector of the next reading, the first that is wanted
  int reads_ = 0;           // of the call at hand
  bool gaveUp_ = false;
};

}  // namespace korvane
