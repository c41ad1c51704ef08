// The names of audio discs from the databases of this machine: SQLite files with one table, cdData,
// whose key is the disc identifier, eight hexadecimal digits.
//
// The calls read files or ask a drive, up to 5 s; they may be made from a thread of the pool, one
// instance at a time.
#pragma once

#include <array>
#include <optional>

#include "core/log.h"
#include "platform/file_system.h"
#include "platform/packet_drive.h"

namespace korvane {

struct DiscNames {
  static constexpr int kTitles = 35;  // columns t0 to t34; further titles are not kept
  QString artist, album;
  std::array<QString, kTitles> titles;  // of track 1 on
};

class clscddb {
 public:
  struct Uses {  // all outlive the object
    FileSystem& files;
    PacketDrive& packets;
    const Log& log;
    QString home;      // the program directory, with mycddb.mdb
    QString cddbPath;  // of cddata1.mdb to cddata5.mdb; "NO" or blank for the program directory
  };
  // Looks now which of the five files there are; one that comes later is not seen.
  explicit clscddb(Uses uses);

  // The identifier of the disc in `drive`; empty when its table of contents cannot be read.
  QString getIDFromCD(const QString& drive);
  // Of a table of contents: the starts of the tracks and of the lead-out, in frames of 1/75 s with
  // the lead-in, a blank between.
  static QString figureid(const QString& toc);

  bool IsDataAvailable() const;  // one of the five files was there
  // In mycddb.mdb, or in the five files until one has the disc. Nothing, and a line of the log,
  // when a file cannot be read; the search ends there.
  std::optional<DiscNames> GetInfo(const QString& discId, bool useMyDatabase);

 private:
  const Uses uses_;
};

}  // namespace korvane
